// The grid list's rows, columns, sizing and layout, and its row collection.

#include "core/zelError.h"
#include "grid/zelGridLayout.h"
#include "grid/zelGridList.h"
#include "grid/zelGridSizing.h"
#include "platform/zelPropertyBag.h"
#include "zelFakePlatform.h"
#include "zelGridTestSupport.h"

#include <QHeaderView>
#include <QPushButton>
#include <QtTest>

Q_DECLARE_METATYPE(zelGridListLayoutInput)

namespace {

// Grid columns from a list such as "b240,s0,n1000": b a check-box column,
// otherwise a text or number column, each with its width in twips.
zelColZeroInput sizing(const QString &columns, qint32 client)
{
    zelColZeroInput in;
    for (const QString &part : columns.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        in.Boolean.push_back(part.at(0) == QLatin1Char('b'));
        in.Widths.push_back(part.mid(1).toInt());
    }
    in.ObjectWidths = in.Widths;
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

// Rows "A", "B", "C" keyed "a", "b", "c".
std::shared_ptr<zelGridRows> threeRows()
{
    auto rows = std::make_shared<zelGridRows>();
    for (const char *k : {"a", "b", "c"})
        rows->Create(QString::fromLatin1(k), QString::fromLatin1(k).toUpper());
    return rows;
}

} // namespace

class tst_zelGridList : public QObject
{
    Q_OBJECT

private slots:
    void sizeColZero_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<QString>("objects"); // the column objects' Width; "" = as shown
        QTest::addColumn<qint32>("client");
        QTest::addColumn<bool>("autoSize");
        QTest::addColumn<QString>("widths");

        auto row = [](const char *name, const char *columns, const char *objects, qint32 client,
                      bool autoSize, const char *widths) {
            QTest::newRow(name) << QString(columns) << QString(objects) << client << autoSize
                                << QString(widths);
        };
        row("name fills what the others leave", "b240,s0,n1000", "", 6000, true, "240,4760,1000");
        row("too wide keeps its own width", "b240,s3000,n3000", "", 6000, true, "240,3000,3000");
        row("exactly the room keeps its own width", "b240,s2760,n3000", "", 6000, true,
            "240,2760,3000");
        row("after two check columns", "b240,b300,s0,n1000", "", 6000, true, "240,300,4460,1000");
        row("a single column is never sized", "s1500", "", 6000, true, "1500");
        row("only check columns", "b240,b300", "", 6000, true, "240,300");
        row("switched off", "b240,s2000,n1000", "", 6000, false, "240,2000,1000");
        // The room shrank: the object's own width counts, not the filled one.
        row("narrower after filling", "b240,s4760,n1000", "240,900,1000", 2000, true,
            "240,900,1000");
        row("wider after filling", "b240,s1760,n1000", "240,900,1000", 6000, true, "240,4760,1000");
        row("no object for the sized column", "s0,n1000", "", 6000, true, "error 9");
    }

    void sizeColZero()
    {
        QFETCH(QString, columns);
        QFETCH(QString, objects);
        QFETCH(qint32, client);
        QFETCH(bool, autoSize);
        QFETCH(QString, widths);
        zelColZeroInput in = sizing(columns, client);
        in.AutoSize = autoSize;
        if (!objects.isEmpty()) {
            in.ObjectWidths.clear();
            for (const QString &w : objects.split(QLatin1Char(',')))
                in.ObjectWidths.push_back(w.toInt());
        }
        if (widths.startsWith(QLatin1String("error")))
            in.ObjectWidths.clear();
        try {
            QCOMPARE(joined(zelSizeColZero(in).Widths), widths);
        } catch (const zelError &e) {
            QCOMPARE(QStringLiteral("error %1").arg(e.Number()), widths);
        }
    }

    void sizeColZeroOnAShownForm_data()
    {
        QTest::addColumn<double>("twipsPerPixel");
        QTest::addColumn<int>("rows");
        QTest::newRow("96 DPI") << 15.0 << 0;
        QTest::newRow("144 DPI") << 10.0 << 0;
        QTest::newRow("96 DPI, rows past a screen") << 15.0 << 60;
        QTest::newRow("144 DPI, rows past a screen") << 10.0 << 60;
    }

    void sizeColZeroOnAShownForm()
    {
        QFETCH(double, twipsPerPixel);
        QFETCH(int, rows);
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
        QTest::addColumn<QString>("switches"); // "1" on, "0" off, "r" on from a store
        QTest::addColumn<QString>("captions");
        QTest::newRow("on") << "1"
                            << "|Name|Value";
        QTest::newRow("on twice") << "11"
                                  << "|Name|Value";
        QTest::newRow("on then off") << "10"
                                     << "Name|Value";
        QTest::newRow("read from a store") << "r"
                                           << "|Name|Value";
    }

    void checkBoxesSwitchTheFirstColumn()
    {
        QFETCH(QString, switches);
        QFETCH(QString, captions);
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
            if (!afterFirst)
                afterFirst = g->Columns();
        }
        QStringList shown;
        for (const auto &col : *g->Columns())
            shown << col->Caption();
        QCOMPARE(shown.join(QLatin1Char('|')), captions);
        QVERIFY(g->Columns() != before);
        if (switches == QLatin1String("11"))
            QCOMPARE(g->Columns(), afterFirst); // the second switch changed nothing
        if (g->CheckBoxes()) {
            const auto check = g->Columns()->Item(1);
            QCOMPARE(check->DataType(), 11);
            QCOMPARE(check->Width(), 240);
            QCOMPARE(check->AllowEdit(), true);
            QCOMPARE(check->Alignment(), ZEL_ColumnAlignCenter);
            QCOMPARE(g->ColumnWidth(0), 240);
            QVERIFY(g->Grid()->model()->index(0, 0).data(Qt::CheckStateRole).isValid());
        }
        QCOMPARE(outOfStep(*g), QString());
    }

    void addItemAtAPositionKeepsGridAndItemsInStep_data()
    {
        QTest::addColumn<int>("lRow");
        QTest::addColumn<QString>("order");
        QTest::addColumn<int>("position"); // of the new row object; 0 = none

        QTest::newRow("append") << -1 << "ABCX" << 4;
        QTest::newRow("first") << 1 << "XABC" << 1;
        QTest::newRow("before the last") << 3 << "ABXC" << 3;
        QTest::newRow("far past the last appends") << 1000 << "ABCX" << 4;
        // Row 0 is the header: the row cannot go there and is lost.
        QTest::newRow("header row") << 0 << "ABC" << 0;
        QTest::newRow("a taken key") << 2 << "ABC" << -1;
    }

    void addItemAtAPositionKeepsGridAndItemsInStep()
    {
        QFETCH(int, lRow);
        QFETCH(QString, order);
        QFETCH(int, position);
        zelTestScope scope;
        auto g = makeList();
        zelGridEvents ev;
        ev.watch(*g);
        const QString key = position < 0 ? QStringLiteral("B") : QStringLiteral("x");
        const auto row = g->AddItem(QStringLiteral("X\t9"), key, QVariant(), lRow);
        QCOMPARE(::order(*g), order);
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(bool(row), position > 0);
        if (position > 0) {
            QCOMPARE(g->RowData(position), row);
            QCOMPARE(g->Items()->IndexOfKey(QStringLiteral("x")), position);
        }
        QCOMPARE(g->Items()->Item(QStringLiteral("b"))->Data(), QStringLiteral("B\t2"));
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), position ? 0 : 1);
        QCoreApplication::processEvents();
        QCOMPARE(ev.joined(), QString());
    }

    void removeAndClearKeepTheGridInStep()
    {
        zelTestScope scope;
        auto g = makeList(5);
        QVERIFY(g->RemoveItem(2));
        QVERIFY(g->RemoveItemByKey(QStringLiteral("E")));
        QCOMPARE(order(*g), QStringLiteral("ACD"));
        QVERIFY(!g->RemoveItem(0));
        QVERIFY(!g->RemoveItem(4));
        QVERIFY(!g->RemoveItemByKey(QStringLiteral("b")));
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(g->Clear().toBool(), true);
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
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void hostChangingItemsOrColumnsDirectlyIsShownAgain()
    {
        zelTestScope scope;
        auto g = makeList();
        const QAbstractItemModel *m = g->Grid()->model();
        // Reading a row the grid still shows never fails.
        auto readAll = [m] {
            for (int r = 0; r < m->rowCount(); ++r)
                for (int c = 0; c < m->columnCount(); ++c)
                    for (int role : {Qt::DisplayRole, Qt::BackgroundRole, Qt::CheckStateRole})
                        m->index(r, c).data(role);
        };
        g->Items()->Clear();
        g->Items()->Create(QString(), QStringLiteral("R\t2"));
        readAll();
        QCOMPARE(g->Refresh().toBool(), true);
        QCOMPARE(outOfStep(*g), QString());
        g->AddItem(QStringLiteral("Q\t1"), QStringLiteral("q"), QVariant(), 1);
        QVERIFY(g->RemoveItem(2));
        QCOMPARE(order(*g), QStringLiteral("Q"));
        QCOMPARE(outOfStep(*g), QString());
        // Columns cleared while rows exist.
        g->Columns()->Clear();
        readAll();
        QVERIFY(g->AddItem(QStringLiteral("E"), QStringLiteral("e"), QVariant(), 1));
        g->RefreshColumns();
        QCOMPARE(outOfStep(*g), QString());
        g->AddColumn(QStringLiteral("Again"));
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void rowMethodsFindTheirRow_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("key"); // "" = by row number
        QTest::addColumn<int>("lRow");
        QTest::addColumn<int>("changed"); // 0 = none, and the answer is false

        for (const char *m : {"SetItem", "SetItemColor", "CheckItem"}) {
            const QByteArray n(m);
            QTest::newRow(n + " by row") << m << "" << 2 << 2;
            QTest::newRow(n + " by key") << m << "C" << 0 << 3;
            QTest::newRow(n + " missing row") << m << "" << 4 << 0;
            QTest::newRow(n + " header row") << m << "" << 0 << 0;
            QTest::newRow(n + " missing key") << m << "zz" << 0 << 0;
        }
        QTest::newRow("SetItem row wins over key") << "SetItem"
                                                   << "c" << 1 << 1;
    }

    void rowMethodsFindTheirRow()
    {
        QFETCH(QString, method);
        QFETCH(QString, key);
        QFETCH(int, lRow);
        QFETCH(int, changed);
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
            if (method == QLatin1String("SetItem")) {
                QCOMPARE(row->Cell(0).toString(), hit ? "N" : QString(QChar(u'A' + r - 1)));
                QCOMPARE(row->Tag().toString(), hit ? QStringLiteral("tag") : QString());
            } else if (method == QLatin1String("SetItemColor")) {
                // Both cells, editable or not, show the row's colour.
                for (int c = 0; c < 2; ++c)
                    QCOMPARE(background(*g, r, c) == QColor(255, 0, 0), hit);
            } else {
                QCOMPARE(row->Checked(), hit);
            }
            // Keys stay with their rows.
            QCOMPARE(g->Items()->KeyAt(r), QString(QChar(u'a' + r - 1)));
        }
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void colourCellsShowTheirNumber_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QColor>("colour"); // invalid: no colour
        QTest::addColumn<QString>("shown");

        QTest::newRow("red") << "255" << QColor(255, 0, 0) << "";
        QTest::newRow("hexadecimal green") << "&HFF00" << QColor(0, 255, 0) << "";
        QTest::newRow("not a number") << "red" << QColor() << "red";
    }

    void colourCellsShowTheirNumber()
    {
        QFETCH(QString, cell);
        QFETCH(QColor, colour);
        QFETCH(QString, shown);
        zelTestScope scope;
        zelGridList g;
        g.AddColumn(QStringLiteral("Class"));
        g.AddColumnEx(QStringLiteral("Colour"), ZEL_ColumnAlignLeft, 36);
        const auto row = g.AddItem(QStringLiteral("Roads\t") + cell, QStringLiteral("r"));
        QVERIFY(row);
        // The row keeps the number; the grid shows only the colour.
        QCOMPARE(row->Data(), QStringLiteral("Roads\t") + cell);
        QCOMPARE(g.Grid()->model()->index(0, 1).data().toString(), shown);
        QCOMPARE(background(g, 1, 1), colour);
        const int errors = colour.isValid() ? 0 : 1;
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.SetColorCells")), errors);
        if (errors)
            QCOMPARE(zelCaptureLogger::errors.first().value(3).toInt(), 13);
        // New text colours the cell anew, and so does rebuilding the columns.
        g.SetItem(QStringLiteral("Roads\t65280"), QStringLiteral("r"));
        QCOMPARE(background(g, 1, 1), QColor(0, 255, 0));
        g.RefreshColumns();
        QCOMPARE(background(g, 1, 1), QColor(0, 255, 0));
    }

    void cellsShowEditingDecimalsAndAlignment()
    {
        zelTestScope scope;
        auto g = makeList();
        const QAbstractItemModel *m = g->Grid()->model();
        // Editable cells are pale yellow.
        QCOMPARE(background(*g, 1, 0), QColor(255, 255, 192));
        QCOMPARE(background(*g, 1, 1), QColor());
        QCOMPARE(m->flags(m->index(0, 0)) & Qt::ItemIsEditable, Qt::ItemIsEditable);
        QCOMPARE(m->flags(m->index(0, 1)) & Qt::ItemIsEditable, Qt::NoItemFlags);

        g->Columns()->Item(2)->SetDecimals(2);
        g->Columns()->Item(2)->SetDataType(5);
        g->RefreshColumns();
        g->SetItem(QStringLiteral("B\tn/a"), QStringLiteral("b"));
        QCOMPARE(m->index(0, 1).data().toString(), QStringLiteral("1.00"));
        QCOMPARE(m->index(0, 1).data(Qt::EditRole).toString(), QStringLiteral("1"));
        QCOMPARE(m->index(1, 1).data().toString(), QStringLiteral("n/a"));
        QCOMPARE(m->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
                 Qt::AlignRight | Qt::AlignVCenter);
    }
    void languageSwitchesTheCaptions()
    {
        zelTestScope scope;
        zelGridList g;
        auto *add =
            g.findChild<QPushButton *>(QStringLiteral("cmdAdd"), Qt::FindDirectChildrenOnly);
        auto *remove = g.findChild<QWidget *>(QStringLiteral("mpbProps"))
                           ->findChild<QPushButton *>(QStringLiteral("cmdRemove"));
        // Letter case alone keeps the spelling; an unknown language the captions.
        for (const char *step :
             {"|English/&New/Remove", "deutsch|deutsch/&Neu/Abbruch", "German|German/&Neu/Abbruch",
              "GERMAN|German/&Neu/Abbruch", "french|french/&Neu/Abbruch", "|English/&New/Remove"}) {
            const QString s = QString::fromLatin1(step);
            g.SetLanguage(s.section(QLatin1Char('|'), 0, 0));
            QCOMPARE(g.Language() + '/' + add->text() + '/' + remove->text(),
                     s.section(QLatin1Char('|'), 1));
        }
    }
    void layoutPlacesEveryPart_data()
    {
        QTest::addColumn<zelGridListLayoutInput>("in");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("grid");
        QTest::addColumn<QString>("bar");
        QTest::addColumn<QStringList>("buttons"); // Add, Edit, Delete, Up, Down

        auto row = [](const char *name, const zelGridListLayoutInput &in, const char *caption,
                      const char *grid, const char *bar, const char *buttons) {
            QTest::newRow(name) << in << QString(caption) << QString(grid) << QString(bar)
                                << QString(buttons).split(QLatin1Char(' '));
        };
        row("bar below", input(false, 15), "-", "120,240,5760,3205", "1200,3565,4680,315",
            "- - - 120,3565,315,315 495,3565,315,315");
        row("column beside", input(true, 15), "-", "120,240,4560,3640", "-",
            "4800,240,1080,315 4800,615,1080,315 4800,990,1080,315 4800,1485,1080,315 "
            "4800,1860,1080,315");
        row("beside, only remove", input(true, 4), "-", "120,240,4560,3640", "-",
            "- - 4800,240,1080,315 4800,735,1080,315 4800,1110,1080,315");
        row("caption", input(false, 0, true), "120,0,5760,240", "120,240,5760,3640", "-",
            "- - - - -");
        auto margins = input(false, 0);
        margins.Margin = 0;
        margins.TopMargin = 600;
        row("margins", margins, "-", "0,600,6000,3400", "-", "- - - - -");
        // Too small for its parts: nothing gets a negative size.
        row("tiny", input(false, 15, false, 100), "-", "120,240,0,0", "-4700,-335,4680,315",
            "- - - 120,-335,315,315 495,-335,315,315");
    }

    void layoutPlacesEveryPart()
    {
        QFETCH(zelGridListLayoutInput, in);
        QFETCH(QString, caption);
        QFETCH(QString, grid);
        QFETCH(QString, bar);
        QFETCH(QStringList, buttons);

        const zelGridListLayout l = zelLayoutGridList(in);
        QCOMPARE(describe(l.CaptionVisible, l.Caption), caption);
        QCOMPARE(describe(true, l.Grid), grid);
        QCOMPARE(describe(l.BarVisible, l.Bar), bar);
        QStringList got;
        for (size_t i = 0; i < 5; ++i)
            got << describe(l.ButtonVisible[i], l.Buttons[i]);
        QCOMPARE(got, buttons);
    }

    void controlAppliesItsLayout()
    {
        zelTestScope scope;
        zelGridList g;
        g.SetCaption(QStringLiteral("Layers"));
        g.resize(400, 300); // 6000 x 4500 twips
        g.LayoutControl();
        QCOMPARE(g.Grid()->geometry(), QRect(8, 16, 384, 247));
        auto *bar = g.findChild<QWidget *>(QStringLiteral("mpbProps"));
        QCOMPARE(bar->geometry().topLeft(), QPoint(80, 271));
        QVERIFY(!g.findChild<QWidget *>(QStringLiteral("lblCaption"))->isHidden());
        g.SetButtonsOnSide(true);
        QVERIFY(bar->isHidden());
        auto *add = g.findChild<QWidget *>(QStringLiteral("cmdAdd"), Qt::FindDirectChildrenOnly);
        QCOMPARE(add->geometry(), QRect(320, 16, 72, 21));
        // A hidden control sizes its first column too, as it is laid out.
        g.AddColumn(QStringLiteral("Name"));
        g.AddColumnEx(QStringLiteral("Value"), ZEL_ColumnAlignRight, 5, 0, 1000);
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
        QTest::addColumn<int>("oldIndex");
        QTest::addColumn<int>("newIndex");
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QString>("order");
        QTest::addColumn<int>("loggedErrors");
        auto row = [](const char *name, int from, int to, bool answer, const char *order,
                      int errors) {
            QTest::newRow(name) << from << to << answer << QString(order) << errors;
        };
        row("last to last appends", 3, 3, true, "ABC", 0);
        row("first to last", 1, 3, true, "BCA", 0);
        row("last to first", 3, 1, true, "CAB", 0);
        row("second up", 2, 1, true, "BAC", 0);
        row("second down", 2, 3, true, "ACB", 0);
        row("same place in the middle", 2, 2, true, "ABC", 0);
        row("new index past the count", 1, 4, false, "ABC", 0);
        row("old index zero", 0, 1, false, "ABC", 0);
        // A target below 1 is not checked first: the row is taken out, cannot
        // go back in, and the failure is logged.
        row("new index zero loses the row", 2, 0, false, "AC", 1);
        row("old index past the count", 4, 2, false, "ABC", 1);
    }

    void rowsMoveFollowsItsRules()
    {
        QFETCH(int, oldIndex);
        QFETCH(int, newIndex);
        QFETCH(int, loggedErrors);
        zelTestScope scope;
        auto rows = threeRows();
        qint32 o = oldIndex, n = newIndex;
        QTEST(rows->Move(o, n), "answer");
        QTEST(order(*rows), "order");
        // The by-reference arguments come back unchanged; keys move with rows.
        QCOMPARE(o, oldIndex);
        QCOMPARE(n, newIndex);
        for (int i = 1; i <= rows->Count(); ++i)
            QCOMPARE(rows->IndexOfKey(rows->Item(i)->Data()), i);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), loggedErrors);
        QCOMPARE(zelLoggedErrors(), loggedErrors);
    }

    void rowCellsSplitAndReplace_data()
    {
        QTest::addColumn<QString>("data");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QString>("after");
        QTest::newRow("middle") << "a\tb\tc" << 1 << "b"
                                << "a\tX\tc";
        QTest::newRow("last") << "a\tb\tc" << 2 << "c"
                              << "a\tb\tX";
        QTest::newRow("past the end") << "a\tb" << 3 << ""
                                      << "a\tb\t\tX";
        QTest::newRow("empty cells") << "\t\t" << 1 << ""
                                     << "\tX\t";
        QTest::newRow("empty text") << "" << 0 << ""
                                    << "X";
        QTest::newRow("negative") << "a" << -1 << ""
                                  << "a";
    }

    void rowCellsSplitAndReplace()
    {
        QFETCH(QString, data);
        QFETCH(int, column);
        zelGridRow row;
        row.SetData(data);
        QTEST(row.Cell(column).toString(), "cell");
        row.SetCell(column, QStringLiteral("X"));
        QTEST(row.Data(), "after");
    }
};

QTEST_MAIN(tst_zelGridList)
#include "tst_zelGridList.moc"
