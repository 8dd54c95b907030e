// The grid list's rows, columns, sizing and layout, and its row collection.

#include "core/zelError.h"
#include "grid/zelGridLayout.h"
#include "grid/zelGridList.h"
#include "grid/zelGridSizing.h"
#include "platform/zelPropertyBag.h"
#include "zelFakePlatform.h"
#include "zelGridTestSupport.h"
#include "zelTestData.h"

#include <QHeaderView>
#include <QPushButton>
#include <QtTest>

Q_DECLARE_METATYPE(zelGridListLayoutInput)

namespace {

// Grid columns from a list such as "b240,s0=900,n1000": b a check-box
// column, otherwise a text or number column, each with its width in twips
// and, after "=", its column object's width when that differs ("-": none).
zelColZeroInput sizing(const QString &columns, qint32 client)
{
    zelColZeroInput in;
    for (const QString &part : columns.split(QLatin1Char(','))) {
        const QString object = part.section(QLatin1Char('='), 1);
        in.Boolean.push_back(part.at(0) == QLatin1Char('b'));
        in.Widths.push_back(part.section(QLatin1Char('='), 0, 0).mid(1).toInt());
        if (object != QLatin1String("-"))
            in.ObjectWidths.push_back(object.isEmpty() ? in.Widths.back() : object.toInt());
    }
    in.ColumnCount = qint32(in.Widths.size());
    in.ClientWidth = client;
    return in;
}

QString joined(const std::vector<qint32> &widths)
{
    QStringList w;
    for (const qint32 x : widths)
        w << QString::number(x);
    return w.join(QLatin1Char(','));
}

// The cell's background, or an invalid colour when it has none of its own.
QColor background(const zelGridList &g, int row, int column)
{
    const QVariant b = g.Grid()->model()->index(row - 1, column).data(Qt::BackgroundRole);
    return b.isValid() ? b.value<QBrush>().color() : QColor();
}

zelGridListLayoutInput input(bool side, qint32 bits, bool caption = false, qint32 w = 6000)
{
    zelGridListLayoutInput in;
    in.Width = w;
    in.Height = w < 6000 ? w : 4000;
    in.ButtonsOnSide = side;
    in.ButtonsVisible = bits;
    in.HasCaption = caption;
    in.BarSize = QSize(4680, 315);
    return in;
}

// "x,y,w,h" or "-" for a hidden part.
QString describe(bool visible, const QRect &r)
{
    return visible
               ? QStringLiteral("%1,%2,%3,%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height())
               : QStringLiteral("-");
}

} // namespace

class tst_zelGridList : public QObject
{
    Q_OBJECT

private slots:
    void sizeColZero_data()
    {
        zelColumns<QString, qint32, bool, QString>({"columns", "client", "autoSize", "widths"});
        zelRow("name fills the rest", "b240,s0,n1000", 6000, true, "240,4760,1000");
        zelRow("too wide keeps its width", "b240,s3000,n3000", 6000, true, "240,3000,3000");
        zelRow("exactly the room", "b240,s2760,n3000", 6000, true, "240,2760,3000");
        zelRow("two check columns", "b240,b300,s0,n1000", 6000, true, "240,300,4460,1000");
        zelRow("a single column is never sized", "s1500", 6000, true, "1500");
        zelRow("only check columns", "b240,b300", 6000, true, "240,300");
        zelRow("switched off", "b240,s2000,n1000", 6000, false, "240,2000,1000");
        // The room shrank: the object's own width counts, not the filled one.
        zelRow("narrower after filling", "b240,s4760=900,n1000", 2000, true, "240,900,1000");
        zelRow("wider after filling", "b240,s1760=900,n1000", 6000, true, "240,4760,1000");
        zelRow("no object for the sized column", "s0=-,n1000=-", 6000, true, "error 9");
    }

    void sizeColZero()
    {
        const auto [columns, client, autoSize] =
            zelFetch<QString, qint32, bool>({"columns", "client", "autoSize"});
        zelColZeroInput in = sizing(columns, client);
        in.AutoSize = autoSize;
        try {
            QTEST(joined(zelSizeColZero(in).Widths), "widths");
        } catch (const zelError &e) {
            QTEST(QStringLiteral("error %1").arg(e.Number()), "widths");
        }
    }

    void sizeColZeroOnAShownForm_data()
    {
        zelColumns<double, int>({"twipsPerPixel", "rows"});
        zelRow("96 DPI", 15.0, 0);
        zelRow("144 DPI", 10.0, 0);
        zelRow("96 DPI, rows past a screen", 15.0, 60);
        zelRow("144 DPI, rows past a screen", 10.0, 60);
    }

    void sizeColZeroOnAShownForm()
    {
        const auto [twipsPerPixel, rows] = zelFetch<double, int>({"twipsPerPixel", "rows"});
        zelTestScope scope;
        scope.fake().twipsPerPixel = twipsPerPixel;
        QWidget form;
        auto *g = new zelGridList(&form);
        g->SetCheckBoxes(true);
        g->AddColumn(QStringLiteral("Name"))->SetWidth(900);
        g->AddColumn(QStringLiteral("Value"), ZEL_ColumnAlignRight)->SetWidth(1200);
        QVERIFY(showOnForm(form, g));
        g->RefreshColumns();
        for (int i = 0; i < rows; ++i)
            g->AddItem(QStringLiteral("\tN\t1"), QString());
        QCoreApplication::processEvents();
        for (const int width : {800, 500}) {
            g->resize(width, 400);
            QCoreApplication::processEvents();
            QCOMPARE(g->ColumnWidth(1), g->GridClientWidth() - 240 - 1200);
            // On the screen the columns meet the grid's right edge exactly.
            const QHeaderView *h = g->Grid()->horizontalHeader();
            QCOMPARE(h->sectionSize(0), qRound(240 / twipsPerPixel));
            QCOMPARE(h->sectionSize(2), qRound(1200 / twipsPerPixel));
            QCOMPARE(h->sectionSize(0) + h->sectionSize(1) + h->sectionSize(2),
                     g->Grid()->viewport()->width());
        }
    }

    void checkBoxesSwitchTheFirstColumn_data()
    {
        zelColumns<QString, QString>({"switches", "captions"}); // "1" on, "0" off, "r" from a store
        zelRow("on", "1", "|Name|Value");
        zelRow("on twice", "11", "|Name|Value");
        zelRow("on then off", "10", "Name|Value");
        zelRow("read from a store", "r", "|Name|Value");
    }

    void checkBoxesSwitchTheFirstColumn()
    {
        const auto [switches] = zelFetch<QString>({"switches"});
        zelTestScope scope;
        auto g = makeList();
        const auto before = g->Columns();
        std::shared_ptr<zelGridColumns> afterFirst;
        zelMemoryPropertyBag stored;
        stored.SetValue(QStringLiteral("CheckBoxes"), true);
        for (const QChar s : switches) {
            if (s == QLatin1Char('r'))
                g->ReadProperties(stored);
            else
                g->SetCheckBoxes(s == QLatin1Char('1'));
            afterFirst = afterFirst ? afterFirst : g->Columns();
        }
        QStringList shown;
        for (const auto &col : *g->Columns())
            shown << col->Caption();
        QTEST(shown.join(QLatin1Char('|')), "captions");
        QVERIFY(g->Columns() != before);
        if (switches == QLatin1String("11"))
            QCOMPARE(g->Columns(), afterFirst); // the second switch changed nothing
        if (g->CheckBoxes()) {
            const auto check = g->Columns()->Item(1);
            QCOMPARE(QList<int>({check->DataType(), check->Width(), check->AllowEdit(),
                                 check->Alignment(), g->ColumnWidth(0)}),
                     QList<int>({11, 240, true, ZEL_ColumnAlignCenter, 240}));
            QVERIFY(g->Grid()->model()->index(0, 0).data(Qt::CheckStateRole).isValid());
        }
        QCOMPARE(outOfStep(*g), QString());
    }

    void addItemAtAPositionKeepsGridAndItemsInStep_data()
    {
        zelColumns<int, QString, int>({"lRow", "order", "position"}); // of the new row; 0 none
        zelRow("append", -1, "ABCX", 4);
        zelRow("first", 1, "XABC", 1);
        zelRow("before the last", 3, "ABXC", 3);
        zelRow("far past the last appends", 1000, "ABCX", 4);
        // Row 0 is the header: the row cannot go there and is lost.
        zelRow("header row", 0, "ABC", 0);
        zelRow("a taken key", 2, "ABC", -1);
    }

    void addItemAtAPositionKeepsGridAndItemsInStep()
    {
        const auto [lRow, position] = zelFetch<int, int>({"lRow", "position"});
        zelTestScope scope;
        auto g = makeList();
        zelGridEvents ev;
        ev.watch(*g);
        const QString key = position < 0 ? QStringLiteral("B") : QStringLiteral("x");
        const auto row = g->AddItem(QStringLiteral("X\t9"), key, QVariant(), lRow);
        QTEST(order(*g) + outOfStep(*g), "order");
        QCOMPARE(bool(row), position > 0);
        QVERIFY(position < 1 || g->RowData(position) == row);
        QCOMPARE(g->Items()->IndexOfKey(QStringLiteral("x")), qMax(position, 0));
        QCOMPARE(g->Items()->Item(QStringLiteral("b"))->Data(), QStringLiteral("B\t2"));
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), position ? 0 : 1);
        QCOMPARE(ev.joined(), QString());
    }

    void removingClearingAndHostChangesKeepTheGridInStep()
    {
        zelTestScope scope;
        auto g = makeList(5);
        QVERIFY(g->RemoveItem(2));
        QVERIFY(g->RemoveItemByKey(QStringLiteral("E")));
        QCOMPARE(order(*g), QStringLiteral("ACD"));
        QVERIFY(!g->RemoveItem(0) && !g->RemoveItem(4));
        QVERIFY(!g->RemoveItemByKey(QStringLiteral("b")));
        QCOMPARE(outOfStep(*g), QString());
        QVERIFY(g->Clear().toBool());
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(g->CurrentRow(), 0);
        // The first row becomes current, even without a key, and stays so
        // when a row goes in above it; the host hears of neither.
        zelGridEvents ev;
        ev.watch(*g);
        QVERIFY(g->AddItem(QStringLiteral("N\t1"), QString()));
        QCOMPARE(g->CurrentRow(), 1);
        QVERIFY(g->AddItem(QStringLiteral("M\t2"), QStringLiteral("a"), QVariant(), 1));
        QCOMPARE(order(*g) + QString::number(g->CurrentRow()), QStringLiteral("MN2"));
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(ev.joined(), QString());
        // The host changes Items or Columns directly, and has them shown again.
        g->Items()->Clear();
        g->Items()->Create(QString(), QStringLiteral("R\t2"));
        readShown(*g);
        QVERIFY(g->Refresh().toBool());
        QCOMPARE(outOfStep(*g), QString());
        g->AddItem(QStringLiteral("Q\t1"), QStringLiteral("q"), QVariant(), 1);
        QVERIFY(g->RemoveItem(2));
        QCOMPARE(order(*g) + outOfStep(*g), QStringLiteral("Q"));
        g->Columns()->Clear(); // while rows exist
        readShown(*g);
        QVERIFY(g->AddItem(QStringLiteral("E"), QStringLiteral("e"), QVariant(), 1));
        g->RefreshColumns();
        QCOMPARE(outOfStep(*g), QString());
        g->AddColumn(QStringLiteral("Again"));
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void rowMethodsFindTheirRow_data()
    {
        // key "" by row number; changed 0 none, and the answer is false
        zelColumns<QString, QString, int, int>({"method", "key", "lRow", "changed"});
        for (const char *m : {"SetItem", "SetItemColor", "CheckItem"}) {
            const QByteArray n(m);
            zelRow(n + " by row", m, "", 2, 2);
            zelRow(n + " by key", m, "C", 0, 3);
            zelRow(n + " missing row", m, "", 4, 0);
            zelRow(n + " header row", m, "", 0, 0);
            zelRow(n + " missing key", m, "zz", 0, 0);
        }
        zelRow("SetItem row wins over key", "SetItem", "c", 1, 1);
    }

    void rowMethodsFindTheirRow()
    {
        const auto [method, key, lRow, changed] =
            zelFetch<QString, QString, int, int>({"method", "key", "lRow", "changed"});
        zelTestScope scope;
        auto g = makeList();
        const quint32 red = 0x0000FF;
        bool answer = false;
        if (method == QLatin1String("SetItem"))
            answer = bool(g->SetItem(QStringLiteral("N\t7"), key, QStringLiteral("tag"), lRow));
        else if (method == QLatin1String("SetItemColor"))
            answer = key.isEmpty() ? g->SetItemColor(lRow, red) : g->SetItemColorByKey(key, red);
        else
            answer = key.isEmpty() ? g->CheckItem(lRow, true) : g->CheckItemByKey(key, true);
        QCOMPARE(answer, changed != 0);
        for (int r = 1; r <= 3; ++r) {
            const auto row = g->Items()->Item(r);
            const bool hit = r == changed;
            // Only the method's own change, on its row; keys stay with their rows.
            QCOMPARE(g->Items()->KeyAt(r), QString(QChar(u'a' + r - 1)));
            QCOMPARE(row->Cell(0).toString() + row->Tag().toString(),
                     hit && method == QLatin1String("SetItem") ? "Ntag"
                                                               : QString(QChar(u'A' + r - 1)));
            // Both cells, editable or not, show the row's colour.
            for (int c = 0; c < 2; ++c)
                QCOMPARE(background(*g, r, c) == QColor(255, 0, 0),
                         hit && method == QLatin1String("SetItemColor"));
            QCOMPARE(row->Checked(), hit && method == QLatin1String("CheckItem"));
        }
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void cellsShowTheirText_data()
    {
        // The Value column's data type and decimals, a cell's text, what the
        // grid shows, the cell's background (invalid: none), logged errors.
        zelColumns<int, int, QString, QString, QColor, int>(
            {"type", "decimals", "cell", "shown", "colour", "errors"});
        zelRow("red", 36, 0, "255", "", QColor(255, 0, 0), 0);
        zelRow("hexadecimal green", 36, 0, "&HFF00", "", QColor(0, 255, 0), 0);
        zelRow("not a colour", 36, 0, "red", "red", QColor(), 1);
        zelRow("decimals", 5, 2, "1", "1.00", QColor(), 0);
        zelRow("decimals of no number", 5, 2, "n/a", "n/a", QColor(), 0);
    }

    void cellsShowTheirText()
    {
        const auto [type, decimals, cell, errors] =
            zelFetch<int, int, QString, int>({"type", "decimals", "cell", "errors"});
        zelTestScope scope;
        auto g = makeList(0);
        g->Columns()->Item(2)->SetDecimals(decimals);
        g->Columns()->Item(2)->SetDataType(type);
        g->RefreshColumns();
        QVERIFY(g->AddItem(QStringLiteral("A\t") + cell, QStringLiteral("a")));
        // The row keeps its text; the grid shows it its own way.
        QCOMPARE(g->Items()->Item(1)->Data() + outOfStep(*g), QStringLiteral("A\t") + cell);
        const QAbstractItemModel *m = g->Grid()->model();
        QTEST(m->index(0, 1).data().toString(), "shown");
        QTEST(background(*g, 1, 1), "colour");
        QCOMPARE(m->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
                 Qt::AlignRight | Qt::AlignVCenter);
        // Editable cells are pale yellow.
        QCOMPARE(background(*g, 1, 0), QColor(255, 255, 192));
        QCOMPARE(m->flags(m->index(0, 0)) & Qt::ItemIsEditable, Qt::ItemIsEditable);
        QCOMPARE(m->flags(m->index(0, 1)) & Qt::ItemIsEditable, Qt::NoItemFlags);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.SetColorCells")), errors);
        if (errors)
            QCOMPARE(zelCaptureLogger::errors.first().value(3).toInt(), 13);
        // New text colours the cell anew, and so does rebuilding the columns.
        if (type == 36) {
            g->SetItem(QStringLiteral("A\t65280"), QStringLiteral("a"));
            QCOMPARE(background(*g, 1, 1), QColor(0, 255, 0));
            g->RefreshColumns();
            QCOMPARE(background(*g, 1, 1), QColor(0, 255, 0));
        }
    }

    void languageSwitchesTheCaptions()
    {
        zelTestScope scope;
        zelGridList g;
        // Letter case alone keeps the spelling; an unknown language the captions.
        for (const char *step :
             {"|English/&New/Remove", "deutsch|deutsch/&Neu/Abbruch", "German|German/&Neu/Abbruch",
              "GERMAN|German/&Neu/Abbruch", "french|french/&Neu/Abbruch", "|English/&New/Remove"}) {
            const QStringList s = QString::fromLatin1(step).split(QLatin1Char('|'));
            g.SetLanguage(s[0]);
            const QString shown =
                button(g, "cmdAdd")->text() + '/' + button(g, "barRemove")->text();
            QCOMPARE(g.Language() + '/' + shown, s[1]);
        }
    }

    void layoutPlacesEveryPart_data()
    {
        // Caption, grid, bar | Add, Edit, Delete, Up, Down
        zelColumns<zelGridListLayoutInput, QString>({"in", "parts"});
        zelRow("bar below", input(false, 15),
               "- 120,240,5760,3205 1200,3565,4680,315 | - - - 120,3565,315,315 495,3565,315,315");
        zelRow("column beside", input(true, 15),
               "- 120,240,4560,3640 - | 4800,240,1080,315 4800,615,1080,315 4800,990,1080,315 "
               "4800,1485,1080,315 4800,1860,1080,315");
        zelRow("beside, only remove", input(true, 4),
               "- 120,240,4560,3640 - | - - 4800,240,1080,315 4800,735,1080,315 "
               "4800,1110,1080,315");
        zelRow("caption", input(false, 0, true), "120,0,5760,240 120,240,5760,3640 - | - - - - -");
        auto margins = input(false, 0);
        margins.Margin = 0;
        margins.TopMargin = 600;
        zelRow("margins", margins, "- 0,600,6000,3400 - | - - - - -");
        // Too small for its parts: nothing gets a negative size.
        zelRow("tiny", input(false, 15, false, 100),
               "- 120,240,0,0 -4700,-335,4680,315 | - - - 120,-335,315,315 495,-335,315,315");
    }

    void layoutPlacesEveryPart()
    {
        const auto [in] = zelFetch<zelGridListLayoutInput>({"in"});
        const zelGridListLayout l = zelLayoutGridList(in);
        QStringList got{describe(l.CaptionVisible, l.Caption), describe(true, l.Grid),
                        describe(l.BarVisible, l.Bar), QStringLiteral("|")};
        for (size_t i = 0; i < 5; ++i)
            got << describe(l.ButtonVisible[i], l.Buttons[i]);
        QTEST(got.join(QLatin1Char(' ')), "parts");
    }

    void controlAppliesItsLayout()
    {
        zelTestScope scope;
        zelGridList g;
        g.SetCaption(QStringLiteral("Layers"));
        g.AddColumn(QStringLiteral("Name"));
        g.AddColumnEx(QStringLiteral("Value"), ZEL_ColumnAlignRight, 5, 0, 1000);
        g.resize(400, 300); // 6000 x 4500 twips
        g.LayoutControl();
        QCOMPARE(g.Grid()->geometry(), QRect(8, 16, 384, 247));
        auto *bar = g.findChild<QWidget *>(QStringLiteral("mpbProps"));
        QCOMPARE(bar->pos(), QPoint(80, 271));
        QVERIFY(!g.findChild<QWidget *>(QStringLiteral("lblCaption"))->isHidden());
        g.SetButtonsOnSide(true);
        QCOMPARE(button(g, "cmdAdd")->geometry(), QRect(320, 16, 72, 21));
        QVERIFY(bar->isHidden());
        // A hidden control sizes its first column too, as it is laid out.
        g.resize(300, 300);
        g.LayoutControl();
        QCOMPARE(g.ColumnWidth(0), g.GridClientWidth() - 1000);
        g.SetBorderStyle(0);
        QCOMPARE(g.ColumnWidth(0), g.GridClientWidth() - 1000);
        // An added row sizes again with what the column objects say now.
        g.Columns()->Item(1)->SetWidth(9000);
        g.AddItem(QStringLiteral("A\t1"), QStringLiteral("a"));
        QCOMPARE(g.ColumnWidth(0), 9000);
    }

    void rowsMoveFollowsItsRules_data()
    {
        zelColumns<int, int, bool, QString, int>({"from", "to", "answer", "order", "errors"});
        zelRow("last to last appends", 3, 3, true, "ABC", 0);
        zelRow("first to last", 1, 3, true, "BCA", 0);
        zelRow("last to first", 3, 1, true, "CAB", 0);
        zelRow("second up", 2, 1, true, "BAC", 0);
        zelRow("second down", 2, 3, true, "ACB", 0);
        zelRow("same place in the middle", 2, 2, true, "ABC", 0);
        zelRow("new index past the count", 1, 4, false, "ABC", 0);
        zelRow("old index zero", 0, 1, false, "ABC", 0);
        // A target below 1 is not checked first: the row is taken out, cannot
        // go back in, and the failure is logged.
        zelRow("new index zero loses the row", 2, 0, false, "AC", 1);
        zelRow("old index past the count", 4, 2, false, "ABC", 1);
    }

    void rowsMoveFollowsItsRules()
    {
        const auto [from, to, errors] = zelFetch<int, int, int>({"from", "to", "errors"});
        zelTestScope scope;
        auto g = makeList();
        const auto rows = g->Items();
        qint32 o = from, n = to;
        QTEST(rows->Move(o, n), "answer");
        QTEST(order(*rows), "order");
        // The by-reference arguments come back unchanged; keys move with rows.
        QCOMPARE(QPoint(o, n), QPoint(from, to));
        for (int i = 1; i <= rows->Count(); ++i)
            QCOMPARE(rows->IndexOfKey(rows->Item(i)->Key()), i);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), errors);
        QCOMPARE(zelLoggedErrors(), errors);
    }

    void rowCellsSplitAndReplace_data()
    {
        zelColumns<QString, int, QString, QString>({"data", "column", "cell", "after"});
        zelRow("middle", "a\tb\tc", 1, "b", "a\tX\tc");
        zelRow("last", "a\tb\tc", 2, "c", "a\tb\tX");
        zelRow("past the end", "a\tb", 3, "", "a\tb\t\tX");
        zelRow("empty cells", "\t\t", 1, "", "\tX\t");
        zelRow("empty text", "", 0, "", "X");
        zelRow("negative", "a", -1, "", "a");
    }

    void rowCellsSplitAndReplace()
    {
        const auto [data, column] = zelFetch<QString, int>({"data", "column"});
        zelGridRow row;
        row.SetData(data);
        QTEST(row.Cell(column).toString(), "cell");
        row.SetCell(column, QStringLiteral("X"));
        QTEST(row.Data(), "after");
    }
};

QTEST_MAIN(tst_zelGridList)
#include "tst_zelGridList.moc"
