#pragma once

#include "App/Application.h"
#include "ViewModels/FlightSearchViewModel.h"
#include "support/ClientTesting.h"
#include "support/ScriptedServer.h"

#include <QJsonArray>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <functional>

/// Collects what QML complains of; a window that complains is broken.
class WarningCatcher
{
public:
    WarningCatcher()
    {
        warnings().clear();
        m_previous = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &, const QString &text) {
                if (type != QtDebugMsg && type != QtInfoMsg)
                    warnings().append(text);
            });
    }
    ~WarningCatcher() { qInstallMessageHandler(m_previous); }

    static QStringList &warnings()
    {
        static QStringList list;
        return list;
    }

private:
    QtMessageHandler m_previous;
};

/// The real window against a scripted server, as it stands after its first search.
class TestWindow
{
public:
    explicit TestWindow(ScriptedServer &server)
    {
        VTRMCPClientTestAccess::replaceShared(server.endpoint());
        if (!loadMainWindow(m_engine, QStringLiteral("Test")))
            return;
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
        // High enough for the day tiles, which are clicked.
        m_window->resize(1280, 1200);
        m_viewModel = m_window->property("viewModel").value<FlightSearchViewModel *>();
    }
    ~TestWindow() { VTRMCPClientTestAccess::destroyShared(); }

    QQuickWindow *window() const { return m_window; }
    FlightSearchViewModel *viewModel() const { return m_viewModel; }

    /// Waits for the end of the search under way; false after the time limit.
    bool waitForSearch() const
    {
        return QTest::qWaitForWindowExposed(m_window) && QTest::qWaitFor([this] {
                   return m_viewModel->hasSearched() && !m_viewModel->isLoading()
                       && !m_viewModel->isSearchingFlightsOnly();
               });
    }

    /// Looks at the item and all below it, as far as they are visible, in tree order.
    static void visit(QQuickItem *root, const std::function<void(QQuickItem *)> &look)
    {
        if (!root || !root->isVisible())
            return;
        look(root);
        const auto children = root->childItems();
        for (QQuickItem *child : children)
            visit(child, look);
    }

    /// All visible items whose QML type is `type`, in tree order.
    QList<QQuickItem *> itemsOfType(const QByteArray &type) const
    {
        QList<QQuickItem *> found;
        visit(m_window->contentItem(), [&](QQuickItem *item) {
            // QML types are named after their file and a number.
            if (QByteArray(item->metaObject()->className()).startsWith(type + "_QMLTYPE"))
                found.append(item);
        });
        return found;
    }

    /// The visible item of this name; null when there is none.
    QQuickItem *named(const QString &objectName) const
    {
        QQuickItem *found = nullptr;
        visit(m_window->contentItem(), [&](QQuickItem *item) {
            if (item->objectName() == objectName)
                found = item;
        });
        return found;
    }

    void click(QQuickItem *item) const
    {
        const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
        QTest::mouseClick(m_window, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
    }

private:
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    FlightSearchViewModel *m_viewModel = nullptr;
};

/// A calendar of `count` days from 1 December 2026 on, each 100 dearer than the one before.
inline QJsonObject calendarContent(int count)
{
    using namespace Qt::StringLiterals;
    QJsonArray days;
    for (int i = 0; i < count; ++i) {
        const QString date = QDate(2026, 12, 1).addDays(i).toString(Qt::ISODate);
        days.append(QJsonObject {
            { u"date"_s, date }, { u"amount"_s, 4000 + 100 * i }, { u"isBestPrice"_s, i == 0 } });
    }
    const QJsonObject best { { u"date"_s, u"2026-12-01"_s }, { u"amount"_s, 4000 } };
    return { { u"prices"_s, days }, { u"bestPrice"_s, best } };
}

/// `count` flights; the dearer ones are the faster ones, and every one has `segments` segments.
inline QJsonObject flightsContent(int count, int segments = 1)
{
    using namespace Qt::StringLiterals;
    QJsonArray options;
    for (int i = 0; i < count; ++i) {
        const QJsonObject segment { { u"flightNumber"_s, u"VQ%1"_s.arg(100 + i) } };
        QJsonArray list;
        for (int s = 0; s < segments; ++s)
            list.append(segment);
        options.append(QJsonObject { { u"flightSegments"_s, list },
                                     { u"cheapestPriceAmount"_s, 4000 + i },
                                     { u"journeyDuration"_s, 60'000 * (20'000 - i) } });
    }
    const QJsonObject information { { u"originDestinationOptions"_s, options } };
    const QJsonObject data { { u"originDestinationInformations"_s, QJsonArray { information } } };
    return { { u"availabilityData"_s, data } };
}
