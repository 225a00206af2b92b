#pragma once

#include "FickleServer.h"
#include "inspect/WindowDriver.h"
#include "support/Http2Front.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QRandomGenerator>
#include <QStringList>
#include <QUrl>

#include <chrono>
#include <memory>

class QQmlApplicationEngine;

/// Uses the real window at random, on a server that answers with random faults. Ends at the first
/// fault: a warning, a result that came from nowhere or is gone, a flag that stays up
/// though nothing runs.
class RandomUser : public QObject
{
    Q_OBJECT

public:
    RandomUser(quint32 seed, bool asksOverHttp2);
    ~RandomUser() override;

    /// Acts for this long. False when something surprised it.
    bool act(std::chrono::seconds time);
    /// What was done and met, for a person.
    QString summary() const;
    /// Notes that something is wrong.
    void surprise(const QString &what);

public Q_SLOTS:
    void noteLink(const QUrl &link);

private:
    struct Action;
    static const QList<Action> &actions();

    void openWindow();
    void closeWindow();
    void doSomething();
    void pressKeys();
    void pressPointer();
    void useItem();
    void openItem(const QString &objectName);
    void click(const QQuickItem *item);
    void chooseDay();
    void resizeWindow();
    void turnWheel();
    void reopenWindow();
    /// Waits until everything has ended, and sees whether it shows.
    void rest();

    void checkFlights();
    void checkCalendar();
    void checkStatus();
    QPoint anywhere();
    int below(int limit) { return m_random.bounded(limit); }

    QRandomGenerator m_random;
    FickleServer m_server;
    std::unique_ptr<Http2Front> m_front; ///< before the server; null for HTTP/1.1
    QUrl m_endpoint;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    WindowDriver m_hands;
    QList<FlightOption> m_flights; ///< that were shown last
    QList<DailyPrice> m_days;
    QMap<QString, int> m_done;
    QStringList m_surprises;
};
