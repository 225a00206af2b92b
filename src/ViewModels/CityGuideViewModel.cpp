#include "ViewModels/CityGuideViewModel.h"

#include "Services/VTRMCPClient.h"

#include <QPointer>

QCoro::Task<> CityGuideViewModel::load(QString destinationCode)
{
    publish(m_destinationCode, destinationCode, &CityGuideViewModel::destinationCodeChanged);
    publish(m_isLoading, true, &CityGuideViewModel::isLoadingChanged);

    // The sheet may close, and take this object with it, while the server answers.
    const QPointer<CityGuideViewModel> self(this);
    const QCoro::Task<CityGuideInfo> guideTask =
        VTRMCPClient::shared().fetchCityGuide(destinationCode);
    const QCoro::Task<QList<PromotionItem>> promotionsTask =
        VTRMCPClient::shared().fetchPromotions();
    try {
        const CityGuideInfo guide = co_await guideTask;
        const QList<PromotionItem> promotions = co_await promotionsTask;
        if (self)
            store(guide, promotions);
    } catch (...) {
        // The sheet goes on to show that it is loading; opening it again asks again. A second task
        // that still runs ends by itself, and its result is ignored.
    }
}

void CityGuideViewModel::store(const CityGuideInfo &guide, const QList<PromotionItem> &promotions)
{
    Q_EMIT objectWillChange();
    m_guideInfo = guide;
    Q_EMIT guideInfoChanged();
    Q_EMIT objectWillChange();
    m_promotions.setRecords(promotions);
    publish(m_isLoading, false, &CityGuideViewModel::isLoadingChanged);
}
