#pragma once

// What the grid list tests share: a list with rows A, B, C (keys a, b, c),
// a recorder of every event in order, and a check that the grid shows
// exactly what Items holds.

#include "grid/zelGridList.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QStringList>
#include <QTableView>

#include <memory>

// Columns "Name" (editable) and "Value" (a number, right-aligned, 1200
// twips); rows "A\t1", "B\t2", "C\t3" under keys a, b, c.
inline std::unique_ptr<zelGridList> makeList(int rows = 3)
{
    auto g = std::make_unique<zelGridList>();
    g->resize(400, 300);
    g->LayoutControl();
    g->AddColumn(QStringLiteral("Name"))->SetAllowEdit(true);
    g->AddColumnEx(QStringLiteral("Value"), ZEL_ColumnAlignRight, 3, 0, 1200);
    for (int i = 0; i < rows; ++i)
        g->AddItem(QStringLiteral("%1\t%2").arg(QChar(u'A' + i)).arg(i + 1),
                   QString(QChar(u'a' + i)));
    // The grid hears of new rows at the next turn of the event loop.
    QCoreApplication::processEvents();
    return g;
}

// The rows' first cells in order ("ABC").
inline QString order(const zelGridList &g)
{
    QString s;
    for (const auto &r : *g.Items())
        s += r->Cell(0).toString();
    return s;
}

// Empty when the grid shows every row object of Items in order, cell by
// cell; what differs otherwise. The grid hears of a changed row count at
// the next turn of the event loop, which this lets run first.
inline QString outOfStep(const zelGridList &g)
{
    QCoreApplication::processEvents();
    const QAbstractItemModel *m = g.Grid()->model();
    if (m->rowCount() != g.Items()->Count())
        return QStringLiteral("rows %1, Items %2").arg(m->rowCount()).arg(g.Items()->Count());
    for (int r = 1; r <= g.Items()->Count(); ++r)
        for (int c = 0; c < m->columnCount(); ++c) {
            const QString shown = m->index(r - 1, c).data(Qt::EditRole).toString();
            const QString held = g.Items()->Item(r)->Cell(c).toString();
            if (shown != held)
                return QStringLiteral("row %1 column %2: %3 / %4").arg(r).arg(c).arg(shown, held);
        }
    return QString();
}

// Every event of a grid list in the order raised, e.g. "Delete(2,b)".
struct zelGridEvents
{
    QStringList events;
    bool vetoEdit = false;   // answer of BeforeEdit
    QString replaceText;     // EditCellByRef writes this when not empty
    qint32 redirectMove = 0; // RowMoved writes this into lNewRow when not 0

    void watch(zelGridList &g)
    {
        QObject::connect(&g, &zelGridList::NewRow,
                         [this](qint32 r) { events << QStringLiteral("NewRow(%1)").arg(r); });
        QObject::connect(&g, &zelGridList::Delete, [this](qint32 r, const QString &k) {
            events << QStringLiteral("Delete(%1,%2)").arg(r).arg(k);
        });
        QObject::connect(&g, &zelGridList::RowMoved, [this](qint32 o, qint32 &n) {
            events << QStringLiteral("RowMoved(%1,%2)").arg(o).arg(n);
            if (redirectMove)
                n = redirectMove;
        });
        QObject::connect(&g, &zelGridList::Edit,
                         [this](qint32 r) { events << QStringLiteral("Edit(%1)").arg(r); });
        QObject::connect(&g, &zelGridList::EditCell, [this](qint32 r, qint32 c, const QString &t) {
            events << QStringLiteral("EditCell(%1,%2,%3)").arg(r).arg(c).arg(t);
        });
        QObject::connect(&g, &zelGridList::EditCellByRef, [this](qint32 r, qint32 c, QString &t) {
            events << QStringLiteral("EditCellByRef(%1,%2,%3)").arg(r).arg(c).arg(t);
            if (!replaceText.isEmpty())
                t = replaceText;
        });
        QObject::connect(&g, &zelGridList::SelectedItem, [this](const QString &k, qint32 r) {
            events << QStringLiteral("SelectedItem(%1,%2)").arg(k).arg(r);
        });
        QObject::connect(&g, &zelGridList::DblClick,
                         [this] { events << QStringLiteral("DblClick"); });
        QObject::connect(&g, &zelGridList::BeforeEdit, [this](qint32 r, qint32 c, bool &cancel) {
            events << QStringLiteral("BeforeEdit(%1,%2)").arg(r).arg(c);
            cancel = vetoEdit;
        });
        QObject::connect(&g, &zelGridList::SelectionChanged,
                         [this] { events << QStringLiteral("SelectionChanged"); });
        QObject::connect(&g, &zelGridList::ItemChecked,
                         [this](qint32 r, const std::shared_ptr<zelGridRow> &row) {
                             events << QStringLiteral("ItemChecked(%1,%2)")
                                           .arg(r)
                                           .arg(row && row->Checked() ? "on" : "off");
                         });
        QObject::connect(&g, &zelGridList::OptionClicked, [this](qint32 i) {
            events << QStringLiteral("OptionClicked(%1)").arg(i);
        });
    }
    QString joined() const { return events.join(QLatin1Char(';')); }
};
