#pragma once

#include <QAccessible>
#include <QHash>
#include <QJSValue>
#include <QQmlEngine>
#include <QQuickItem>

/// Makes a view one list for assistive technology: how many rows it has, in which order, and
/// which of them has the keyboard, whichever of them exist as items. The view lies inside it, and
/// its items are no part of the tree. While `isActive`, each move of `currentRow` is announced.
///
/// `Accessible.name` says what the list holds.
class AccessibleList : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int count MEMBER m_count NOTIFY countChanged)
    /// A function that returns the accessible name of a row.
    Q_PROPERTY(QJSValue textOf MEMBER m_textOf WRITE setTextOf REQUIRED)
    /// A function that returns the item that shows a row; null where there is none.
    Q_PROPERTY(QJSValue itemOf MEMBER m_itemOf WRITE setItemOf REQUIRED)
    /// -1 for none.
    Q_PROPERTY(int currentRow MEMBER m_currentRow NOTIFY currentRowChanged)
    /// The row chosen so far; -1 for none.
    Q_PROPERTY(int selectedRow MEMBER m_selectedRow NOTIFY selectedRowChanged)
    /// The keyboard is in the list.
    Q_PROPERTY(bool isActive MEMBER m_isActive NOTIFY isActiveChanged)

public:
    explicit AccessibleList(QQuickItem *parent = nullptr);
    ~AccessibleList() override;

    int count() const { return m_count; }
    void setTextOf(const QJSValue &function) { m_textOf = function; }
    void setItemOf(const QJSValue &function) { m_itemOf = function; }
    int currentRow() const { return m_currentRow; }
    int selectedRow() const { return m_selectedRow; }
    bool isActive() const { return m_isActive; }

    QString textOfRow(int row) const;
    QQuickItem *itemOfRow(int row) const;
    /// Null for a row that there is not.
    QAccessibleInterface *row(int row);
    QAccessibleInterface *makeInterface();

    /// Announces the current row again, as after a change of its text: once, when everything that
    /// goes with the change has been done.
    Q_INVOKABLE void announceCurrentRow();

Q_SIGNALS:
    void countChanged();
    void currentRowChanged();
    void selectedRowChanged();
    void isActiveChanged();
    /// Assistive technology pressed a row.
    void rowPressed(int row);
    /// Assistive technology asks for the keyboard to come to a row.
    void rowFocused(int row);

private:
    void reportCurrentRow();

    QHash<int, QAccessible::Id> m_rows;
    QJSValue m_textOf;
    QJSValue m_itemOf;
    int m_count = 0;
    int m_currentRow = -1;
    int m_selectedRow = -1;
    bool m_isActive = false;
    bool m_isAnnouncing = false;
};
