#pragma once

// The ordered collection of a grid list's rows, keyed by each row's Key
// when it is not empty (letter case ignored). In a grid list, row n
// describes grid row n (grid row 0 being the header).

#include "core/zelKeyedCollection.h"
#include "core/zelShared.h"
#include "grid/zelGridEnumerator.h"
#include "grid/zelGridRow.h"

#include <QObject>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelGridRows : public zel::SharedObject<zelGridRows>
{
    Q_OBJECT
    Q_PROPERTY(qint32 Count READ Count)

public:
    using Collection = zel::zelKeyedCollection<zelGridRow>;

    Q_INVOKABLE explicit zelGridRows(QObject *parent = nullptr);
    ~zelGridRows() override;

    // Appends the row under its Key (without a key when Key is empty);
    // false for a key that is already there. Never raises.
    bool Add(const std::shared_ptr<zelGridRow> &rhs);
    Q_INVOKABLE bool Add(QObject *rhs);
    // A new row with this tag, key and text, added; nothing for a key that
    // is already there.
    Q_INVOKABLE std::shared_ptr<zelGridRow> Create(const QString &sKey, const QString &sData,
                                                   const QVariant &oTag = QVariant());
    // Moves row lOldIndex so that it ends at lNewIndex. False when lOldIndex
    // is below 1 or lNewIndex above the count; a move to the last position
    // appends. A failure on the way (lOldIndex above the count, lNewIndex
    // below 1) is logged under "zelGridRows.Move" and answers false; a row
    // already taken out then stays out. The arguments are not changed.
    Q_INVOKABLE bool Move(qint32 &lOldIndex, qint32 &lNewIndex);
    Q_INVOKABLE bool Remove(const QVariant &vKey);
    Q_INVOKABLE std::shared_ptr<zelGridRow> Item(const QVariant &vKey) const;
    Q_INVOKABLE qint32 Count() const { return m_items.Count(); }
    Q_INVOKABLE void Clear();
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;

    const Collection &Items() const { return m_items; }
    std::shared_ptr<zelGridRow> ItemAt(qint32 pos) const { return m_items.ItemAt(pos); }
    // 1-based position of the row added under sKey; 0 when there is none.
    qint32 IndexOfKey(const QString &sKey) const { return m_items.IndexOfKey(sKey); }
    // The key a row was added under.
    QString KeyAt(qint32 pos) const { return m_items.KeyAt(pos); }
    Collection::const_iterator begin() const { return m_items.begin(); }
    Collection::const_iterator end() const { return m_items.end(); }

private:
    Collection m_items;
};
