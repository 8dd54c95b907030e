#pragma once

// What the grid list tests share: a list with rows A, B, C (keys a, b, c),
// a recorder of every event in order, and a check that the grid shows
// exactly what Items holds.

#include "grid/zelGridList.h"
#include "grid/zelGridRows.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QPushButton>
#include <QStringList>
#include <QTableView>
#include <QTest>

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
inline QString order(const zelGridRows &rows)
{
    QString s;
    for (const auto &r : rows)
        s += r->Cell(0).toString();
    return s;
}
inline QString order(const zelGridList &g)
{
    return order(*g.Items());
}

// Places the list at 800 x 400 pixels on a shown 900 x 500 form.
inline bool showOnForm(QWidget &form, zelGridList *g)
{
    form.resize(900, 500);
    g->setParent(&form);
    g->setGeometry(0, 0, 800, 400);
    form.show();
    return QTest::qWaitForWindowExposed(&form);
}

// "cmdAdd" beside the grid, "barAdd" the same button in the bar below it.
inline QPushButton *button(zelGridList &g, const char *name)
{
    const QString n = QString::fromLatin1(name);
    if (n.startsWith(QLatin1String("bar")))
        return g.findChild<QWidget *>(QStringLiteral("mpbProps"))
            ->findChild<QPushButton *>(QStringLiteral("cmd") + n.mid(3));
    return g.findChild<QPushButton *>(n, Qt::FindDirectChildrenOnly);
}

// Reads every role of every cell the grid shows: a row or column the host
// took away directly may still be shown, and reading it must not fail.
inline void readShown(const zelGridList &g)
{
    const QAbstractItemModel *m = g.Grid()->model();
    for (int r = 0; r < m->rowCount(); ++r)
        for (int c = 0; c < m->columnCount(); ++c)
            for (int role : {Qt::DisplayRole, Qt::BackgroundRole, Qt::CheckStateRole})
                m->index(r, c).data(role);
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

    static QString text(qint32 v) { return QString::number(v); }
    static QString text(bool) { return QStringLiteral("\x01"); } // an answer, not recorded
    static QString text(const QString &v) { return v; }
    static QString text(const std::shared_ptr<zelGridRow> &row)
    {
        return row && row->Checked() ? QStringLiteral("on") : QStringLiteral("off");
    }
    // Records the signal as "Name(argument,...)", then lets answer reply.
    template <typename... A, typename F = void (*)(A &...)>
    void on(
        zelGridList &g, void (zelGridList::*signal)(A...), const char *name,
        F answer = [](A &...) {})
    {
        QObject::connect(&g, signal, [this, name, answer](A... args) {
            QStringList parts{text(args)...};
            parts.removeAll(QStringLiteral("\x01"));
            events << QString::fromLatin1(name) +
                          (parts.isEmpty() ? QString() : '(' + parts.join(',') + ')');
            answer(args...);
        });
    }

    void watch(zelGridList &g)
    {
        on(g, &zelGridList::NewRow, "NewRow");
        on(g, &zelGridList::Delete, "Delete");
        on(g, &zelGridList::RowMoved, "RowMoved",
           [this](qint32 &, qint32 &n) { n = redirectMove ? redirectMove : n; });
        on(g, &zelGridList::Edit, "Edit");
        on(g, &zelGridList::EditCell, "EditCell");
        on(g, &zelGridList::EditCellByRef, "EditCellByRef",
           [this](qint32 &, qint32 &, QString &t) { t = replaceText.isEmpty() ? t : replaceText; });
        on(g, &zelGridList::SelectedItem, "SelectedItem");
        on(g, &zelGridList::DblClick, "DblClick");
        on(g, &zelGridList::BeforeEdit, "BeforeEdit",
           [this](qint32 &, qint32 &, bool &cancel) { cancel = vetoEdit; });
        on(g, &zelGridList::SelectionChanged, "SelectionChanged");
        on(g, &zelGridList::ItemChecked, "ItemChecked");
        on(g, &zelGridList::OptionClicked, "OptionClicked");
    }
    QString joined() const { return events.join(QLatin1Char(';')); }
};
