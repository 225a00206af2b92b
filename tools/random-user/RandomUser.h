#pragma once

#include "RandomServer.h"
#include "inspect/WindowDriver.h"
#include "support/Http2Front.h"

#include <QQmlApplicationEngine>

#include <memory>

/// Uses the real window at random, on a RandomServer, and looks at what comes of it. What is wrong
/// is a warning.
class RandomUser : public QObject, private WindowDriver
{
    Q_OBJECT

public:
    RandomUser(quint32 seed, bool asksOverHttp2);
    ~RandomUser() override;

    /// Any one thing.
    void act();
    /// Waits until everything has ended, and sees whether it shows.
    void rest();

    const QMap<QString, int> &done() const { return m_done; }
    const QMap<QString, int> &answers() const { return m_server.answers; }

public Q_SLOTS:
    void noteLink(const QUrl &link);

private:
    struct Action
    {
        int weight; ///< how often, beside the others
        QString name;
        std::function<void()> run;
    };
    QList<Action> actions();

    void openWindow();
    void closeWindow();
    void reopenWindow();
    void press(const QString &objectName);
    /// Where it is, whatever lies above it; not outside the window.
    void clickThere(QQuickItem *item);
    void pressKeys();
    void pressPointer();
    void useItem();
    void chooseDay();
    void turnWheel();

    bool isAsking() const;
    void checkFlights();
    void checkCalendar();
    void checkStatus();

    int below(int limit) { return m_random.bounded(limit); }
    QPoint anywhere() { return { below(m_window->width()), below(m_window->height()) }; }
    template<typename T>
    const T &one(const QList<T> &list)
    {
        return list.at(below(static_cast<int>(list.size())));
    }

    QRandomGenerator m_random;
    RandomServer m_server;
    std::unique_ptr<Http2Front> m_front; ///< before the server; null for HTTP/1.1
    QUrl m_endpoint;
    const QList<Action> m_actions = actions();
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QList<FlightOption> m_flights; ///< that were shown last
    QList<DailyPrice> m_days;
    QMap<QString, int> m_done;
};
