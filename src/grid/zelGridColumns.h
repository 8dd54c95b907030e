#pragma once

// The ordered collection of a grid list's columns, keyed by caption
// (letter case ignored). Grid column i shows item i + 1.

#include "core/zelKeyedCollection.h"
#include "core/zelShared.h"
#include "grid/zelGridColumn.h"
#include "grid/zelGridEnumerator.h"

#include <QObject>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelGridColumns : public zel::SharedObject<zelGridColumns>
{
    Q_OBJECT
    Q_PROPERTY(qint32 Count READ Count)

public:
    using Collection = zel::zelKeyedCollection<zelGridColumn>;

    Q_INVOKABLE explicit zelGridColumns(QObject *parent = nullptr);
    ~zelGridColumns() override;

    // Appends the column under its caption; false when a column of that
    // caption is already there (or rhs is not a column). Never raises.
    bool Add(const std::shared_ptr<zelGridColumn> &rhs);
    // The same for a late-bound reference (see zel::SharedFromObject).
    Q_INVOKABLE bool Add(QObject *rhs);
    // A new column with this caption and alignment, added; nothing when
    // the caption is taken.
    Q_INVOKABLE std::shared_ptr<zelGridColumn>
    Create(const QString &sCaption, ZEL_Controls_ColumnAlign eAlignment = ZEL_ColumnAlignLeft);
    // By 1-based position or by caption; false when there is no such member.
    Q_INVOKABLE bool Remove(const QVariant &vKey);
    // By 1-based position or by caption; nothing when there is no such member.
    Q_INVOKABLE std::shared_ptr<zelGridColumn> Item(const QVariant &vKey) const;
    Q_INVOKABLE qint32 Count() const { return m_items.Count(); }
    // Replaces the members by none; enumerators taken before keep theirs.
    Q_INVOKABLE void Clear();
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;

    const Collection &Items() const { return m_items; }
    // Range-for over the columns in order.
    Collection::const_iterator begin() const { return m_items.begin(); }
    Collection::const_iterator end() const { return m_items.end(); }

private:
    Collection m_items;
};
