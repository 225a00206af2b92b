#pragma once

#include "Models/CityGuideInfo.h"
#include "Models/PromotionItem.h"
#include "ViewModels/ObservableObject.h"
#include "ViewModels/RecordListModel.h"

#include <QCoroTask>

#include <optional>

using PromotionListModel = RecordListModel<PromotionItem>;

/// What one opening of the city guide sheet shows. It lives on the main thread and is deleted with
/// the sheet's content, even while a request runs.
class CityGuideViewModel : public ObservableObject
{
    Q_OBJECT
    Q_PROPERTY(QString destinationCode READ destinationCode NOTIFY destinationCodeChanged)
    Q_PROPERTY(bool hasGuideInfo READ hasGuideInfo NOTIFY guideInfoChanged)
    Q_PROPERTY(CityGuideInfo guideInfo READ guideInfoOrEmpty NOTIFY guideInfoChanged)
    Q_PROPERTY(CountedListModel *promotions READ promotionsModel CONSTANT)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)

public:
    using ObservableObject::ObservableObject;

    /// The airport that the guide was asked for; empty before.
    QString destinationCode() const { return m_destinationCode; }
    std::optional<CityGuideInfo> guideInfo() const { return m_guideInfo; }
    /// In the server's order.
    const QList<PromotionItem> &promotions() const { return m_promotions.records(); }
    bool isLoading() const { return m_isLoading; }

    // The shapes in which QML reads the state above.
    bool hasGuideInfo() const { return m_guideInfo.has_value(); }
    CityGuideInfo guideInfoOrEmpty() const { return m_guideInfo.value_or(CityGuideInfo()); }
    CountedListModel *promotionsModel() { return &m_promotions; }

    /// Asks for the guide of this airport and for the promotions at once, and stores both when both
    /// have come. When either fails nothing is stored, and `isLoading` stays true for good.
    QCoro::Task<> load(QString destinationCode);
    /// For the view, which starts the task and does not wait for it.
    Q_INVOKABLE void startLoading(const QString &destinationCode) { load(destinationCode); }

Q_SIGNALS:
    void destinationCodeChanged();
    void guideInfoChanged();
    void isLoadingChanged();

private:
    void store(const CityGuideInfo &guide, const QList<PromotionItem> &promotions);

    QString m_destinationCode;
    std::optional<CityGuideInfo> m_guideInfo;
    PromotionListModel m_promotions { "promotion" };
    bool m_isLoading = false;
};
