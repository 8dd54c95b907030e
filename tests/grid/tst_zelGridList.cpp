// The grid list's rows, columns, sizing, layout, persistence and late-bound
// surface.

#include "grid/zelGridLayout.h"
#include "grid/zelGridList.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "zelFakePlatform.h"
#include "zelGridTestSupport.h"

#include <QHeaderView>
#include <QMetaMethod>
#include <QPushButton>
#include <QtTest>

Q_DECLARE_METATYPE(zelGridListLayoutInput)

namespace {

// Columns from a list such as "b240,s0,n1000": b boolean, s string,
// n number, then the column's own Width in twips.
void addColumns(zelGridList &g, const QString &columns)
{
    int i = 0;
    for (const QString &part : columns.split(QLatin1Char(','))) {
        const qint32 type = part.at(0) == QLatin1Char('b')   ? 11
                            : part.at(0) == QLatin1Char('n') ? 5
                                                             : 8;
        g.AddColumnEx(QStringLiteral("c%1").arg(i++), ZEL_ColumnAlignLeft, type, 0,
                      qint16(part.mid(1).toInt()));
    }
}

QString widths(const zelGridList &g)
{
    QStringList w;
    for (int c = 0; c < g.Grid()->model()->columnCount(); ++c)
        w << QString::number(g.ColumnWidth(c));
    return w.join(QLatin1Char(','));
}

// A grid exactly 6000 twips wide inside: no border, margin or buttons.
std::unique_ptr<zelGridList> bareList()
{
    auto g = std::make_unique<zelGridList>();
    g->SetBorderStyle(0);
    g->SetMargin(0);
    g->SetTopMargin(0);
    g->SetButtonsVisible(0);
    g->resize(400, 300);
    g->LayoutControl();
    return g;
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
    void sizeColZeroFillsOrKeepsOwnWidth_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<bool>("autoSize");
        QTest::addColumn<QString>("widths");

        // The grid is 6000 twips wide inside.
        QTest::newRow("name fills what the others leave")
            << "b240,s0,n1000" << true << "240,4760,1000";
        QTest::newRow("too wide keeps its own width")
            << "b240,s3000,n3000" << true << "240,3000,3000";
        QTest::newRow("exactly the room keeps its own width")
            << "b240,s2760,n3000" << true << "240,2760,3000";
        QTest::newRow("too wide with no own width") << "b240,s0,n6000" << true << "240,0,6000";
        QTest::newRow("after two check columns")
            << "b240,b300,s0,n1000" << true << "240,300,4460,1000";
        QTest::newRow("a single column is never sized") << "s1500" << true << "1500";
        QTest::newRow("only booleans") << "b240,b300" << true << "240,300";
        QTest::newRow("switched off") << "b240,s2000,n1000" << false << "240,2000,1000";
    }

    void sizeColZeroFillsOrKeepsOwnWidth()
    {
        QFETCH(QString, columns);
        QFETCH(bool, autoSize);
        QFETCH(QString, widths);
        zelTestScope scope;
        auto g = bareList();
        QCOMPARE(g->GridClientWidth(), 6000);
        g->SetAutoSizeColZero(autoSize);
        addColumns(*g, columns);
        g->SizeColZero();
        QCOMPARE(::widths(*g), widths);
        // Rows do not change the sizing.
        g->AddItem(QStringLiteral("x\ty\tz"), QStringLiteral("k"));
        QCOMPARE(::widths(*g), widths);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void sizeColZeroFollowsTheControlsWidth()
    {
        zelTestScope scope;
        auto g = bareList();
        addColumns(*g, QStringLiteral("s0,n1000"));
        g->resize(200, 300); // 3000 twips
        g->LayoutControl();
        QCOMPARE(g->ColumnWidth(0), 2000);
        // A border takes its width from the room; the grid shows pixels.
        g->SetBorderStyle(1);
        QVERIFY(g->GridClientWidth() < 3000);
        QCOMPARE(g->ColumnWidth(0), g->GridClientWidth() - 1000);
        QCOMPARE(g->Grid()->horizontalHeader()->sectionSize(1), qRound(1000 / 15.0));
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
        form.resize(900, 500);
        auto *g = new zelGridList(&form);
        g->setGeometry(0, 0, 800, 400);
        g->SetCheckBoxes(true);
        g->AddColumn(QStringLiteral("Name"))->SetWidth(900);
        g->AddColumn(QStringLiteral("Value"), ZEL_ColumnAlignRight)->SetWidth(1200);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        g->RefreshColumns();
        for (int i = 0; i < rows; ++i)
            g->AddItem(QStringLiteral("\tN\t1"), QString());
        QCoreApplication::processEvents();
        QCOMPARE(g->ColumnWidth(1), g->GridClientWidth() - 240 - 1200);
        // On the screen the columns meet the grid's right edge exactly.
        const QHeaderView *h = g->Grid()->horizontalHeader();
        QCOMPARE(h->sectionSize(0), qRound(240 / twipsPerPixel));
        QCOMPARE(h->sectionSize(2), qRound(1200 / twipsPerPixel));
        QCOMPARE(h->sectionSize(0) + h->sectionSize(1) + h->sectionSize(2),
                 g->Grid()->viewport()->width());
    }

    void checkBoxesSwitchTheFirstColumn_data()
    {
        QTest::addColumn<QString>("switches"); // "1" on, "0" off, in order
        QTest::addColumn<QString>("captions");
        QTest::addColumn<bool>("newCollection");

        QTest::newRow("on") << "1"
                            << "|Name|Value" << true;
        QTest::newRow("on twice") << "11"
                                  << "|Name|Value" << true;
        QTest::newRow("on then off") << "10"
                                     << "Name|Value" << true;
    }

    void checkBoxesSwitchTheFirstColumn()
    {
        QFETCH(QString, switches);
        QFETCH(QString, captions);
        QFETCH(bool, newCollection);
        zelTestScope scope;
        auto g = makeList();
        const auto before = g->Columns();
        std::shared_ptr<zelGridColumns> afterFirst;
        for (const QChar s : switches) {
            g->SetCheckBoxes(s == QLatin1Char('1'));
            if (!afterFirst)
                afterFirst = g->Columns();
        }
        QStringList shown;
        for (const auto &col : *g->Columns())
            shown << col->Caption();
        QCOMPARE(shown.join(QLatin1Char('|')), captions);
        QCOMPARE(g->Columns() != before, newCollection);
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
    }

    void addItemAtAPositionKeepsGridAndItemsInStep()
    {
        QFETCH(int, lRow);
        QFETCH(QString, order);
        QFETCH(int, position);
        zelTestScope scope;
        auto g = makeList();
        const auto row = g->AddItem(QStringLiteral("X\t9"), QStringLiteral("x"), QVariant(), lRow);
        QCOMPARE(::order(*g), order);
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(bool(row), position != 0);
        if (position) {
            QCOMPARE(g->RowData(position), row);
            QCOMPARE(g->Items()->IndexOfKey(QStringLiteral("x")), position);
        }
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), position ? 0 : 1);
    }

    void addItemWithATakenKeyChangesNothing()
    {
        zelTestScope scope;
        auto g = makeList();
        zelGridEvents ev;
        ev.watch(*g);
        QSignalSpy rowsInserted(g->Grid()->model(), &QAbstractItemModel::rowsInserted);
        QVERIFY(!g->AddItem(QStringLiteral("dup\t0"), QStringLiteral("B")));
        QVERIFY(!g->AddItemEx(QStringLiteral("dup\t0"), QStringLiteral("b"), QVariant(), 1, true));
        QCOMPARE(rowsInserted.count(), 0);
        QCOMPARE(order(*g), QStringLiteral("ABC"));
        QCOMPARE(g->Items()->Item(QStringLiteral("b"))->Data(), QStringLiteral("B\t2"));
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(ev.joined(), QString());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void firstRowBecomesCurrentWithoutEvents()
    {
        for (const QString &key : {QStringLiteral("k"), QString()}) {
            zelTestScope scope;
            zelGridList g;
            zelGridEvents ev;
            ev.watch(g);
            g.AddColumn(QStringLiteral("Name"));
            QCOMPARE(g.CurrentRow(), 0);
            g.AddItem(QStringLiteral("first"), key);
            QCOMPARE(g.CurrentRow(), 1);
            g.AddItem(QStringLiteral("second"), QString(), QVariant(), 1);
            // The current row follows its row; no later row is made current.
            QCOMPARE(g.RowData(g.CurrentRow())->Data(), QStringLiteral("first"));
            QCoreApplication::processEvents();
            QCOMPARE(ev.joined(), QString());
        }
    }

    void addItemExAndCheckItemMarkTheRow()
    {
        zelTestScope scope;
        auto g = makeList(0);
        g->SetCheckBoxes(true);
        const auto on = g->AddItemEx(QStringLiteral("\tA\t1"), QStringLiteral("a"), {}, -1, true);
        g->AddItemEx(QStringLiteral("\tB\t2"), QStringLiteral("b"));
        QCoreApplication::processEvents();
        auto shown = [&](int r) {
            return g->Grid()->model()->index(r - 1, 0).data(Qt::CheckStateRole).toInt();
        };
        QCOMPARE(shown(1) * 10 + shown(2), Qt::Checked * 10 + Qt::Unchecked);
        QVERIFY(g->CheckItemByKey(QStringLiteral("B"), true));
        QVERIFY(g->CheckItem(1, false));
        QCOMPARE(shown(1) * 10 + shown(2), Qt::Unchecked * 10 + Qt::Checked);
        QCOMPARE(on->Checked(), false);
        QVERIFY(!g->CheckItem(3, true));
        QVERIFY(!g->CheckItemByKey(QStringLiteral("zz"), true));
        // Without check boxes the mark is not set.
        auto plain = makeList(0);
        QCOMPARE(plain->AddItemEx(QStringLiteral("A"), QString(), {}, -1, true)->Checked(), false);
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
        // Removing the current row leaves a current row in the list.
        g->SelectItem(QStringLiteral("d"));
        QVERIFY(g->RemoveItem(3));
        QVERIFY(g->CurrentRow() >= 1 && g->CurrentRow() <= 2);
        QCOMPARE(g->Clear().toBool(), true);
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(g->CurrentRow(), 0);
        QVERIFY(g->AddItem(QStringLiteral("N\t1"), QStringLiteral("a")));
        QCOMPARE(outOfStep(*g), QString());
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
                    for (int role : {Qt::DisplayRole, Qt::BackgroundRole, Qt::CheckStateRole,
                                     Qt::TextAlignmentRole})
                        m->index(r, c).data(role);
        };
        g->Items()->Remove(1);
        g->Items()->Create(QStringLiteral("z"), QStringLiteral("Z\t26"));
        readAll();
        QCOMPARE(g->Refresh().toBool(), true);
        QCOMPARE(outOfStep(*g), QString());
        g->Items()->Clear();
        g->Items()->Create(QString(), QStringLiteral("R\t2"));
        g->AddItem(QStringLiteral("Q\t1"), QStringLiteral("q"), QVariant(), 1);
        QVERIFY(g->RemoveItem(2));
        QCOMPARE(order(*g), QStringLiteral("Q"));
        QCOMPARE(outOfStep(*g), QString());

        // Columns cleared while rows exist.
        g->Columns()->Clear();
        readAll();
        QVERIFY(g->AddItem(QStringLiteral("E"), QStringLiteral("e"), QVariant(), 1));
        g->SizeColZero();
        g->RefreshColumns();
        QCOMPARE(m->columnCount(), 0);
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(order(*g), QStringLiteral("EQ"));
        g->AddColumn(QStringLiteral("Again"));
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void setItemReplacesTheText_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("lRow");
        QTest::addColumn<int>("changed"); // row changed; 0 = none
        QTest::newRow("row wins over key") << "c" << 1 << 1;
        QTest::newRow("by key") << "C" << -1 << 3;
        QTest::newRow("neither") << "zz" << -1 << 0;
    }

    void setItemReplacesTheText()
    {
        QFETCH(QString, key);
        QFETCH(int, lRow);
        QFETCH(int, changed);
        zelTestScope scope;
        auto g = makeList();
        const auto row = g->SetItem(QStringLiteral("N\t7"), key, QStringLiteral("tag"), lRow);
        QCOMPARE(bool(row), changed != 0);
        for (int r = 1; r <= 3; ++r) {
            const bool isChanged = r == changed;
            QCOMPARE(g->Items()->Item(r)->Cell(0).toString(),
                     isChanged ? QStringLiteral("N") : QString(QChar(u'A' + r - 1)));
            QCOMPARE(g->Items()->Item(r)->Tag().toString(),
                     isChanged ? QStringLiteral("tag") : QString());
            // Keys stay with their rows.
            QCOMPARE(g->Items()->KeyAt(r), QString(QChar(u'a' + r - 1)));
        }
        QCOMPARE(outOfStep(*g), QString());
    }

    void rowColourByRowAndByKey_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("lRow");
        QTest::addColumn<int>("coloured");
        QTest::newRow("row") << "" << 2 << 2;
        QTest::newRow("missing row") << "" << 4 << 0;
        QTest::newRow("header row") << "" << 0 << 0;
        QTest::newRow("key") << "C" << 0 << 3;
        QTest::newRow("missing key") << "zz" << 0 << 0;
    }

    void rowColourByRowAndByKey()
    {
        QFETCH(QString, key);
        QFETCH(int, lRow);
        QFETCH(int, coloured);
        zelTestScope scope;
        auto g = makeList();
        const quint32 red = 0x0000FF;
        const bool answer =
            key.isEmpty() ? g->SetItemColor(lRow, red) : g->SetItemColorByKey(key, red);
        QCOMPARE(answer, coloured != 0);
        for (int r = 1; r <= 3; ++r) {
            QCOMPARE(g->Items()->Item(r)->RowColor(), r == coloured ? red : 0x80000005u);
            // Both cells, editable or not, show the row's colour.
            for (int c = 0; c < 2; ++c)
                QCOMPARE(background(*g, r, c) == QColor(255, 0, 0), r == coloured);
        }
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
        auto shown = [&] {
            return g.Language() + QLatin1Char('/') + add->text() + QLatin1Char('/') +
                   remove->text();
        };
        QCOMPARE(shown(), QStringLiteral("English/&New/Remove"));
        g.SetLanguage(QStringLiteral("deutsch"));
        QCOMPARE(shown(), QStringLiteral("deutsch/&Neu/Abbruch"));
        g.SetLanguage(QStringLiteral("German"));
        g.SetLanguage(QStringLiteral("GERMAN")); // case only: the spelling stays
        QCOMPARE(shown(), QStringLiteral("German/&Neu/Abbruch"));
        g.SetLanguage(QStringLiteral("french")); // unknown: the captions stay
        QCOMPARE(shown(), QStringLiteral("french/&Neu/Abbruch"));
        g.SetLanguage(QString());
        QCOMPARE(shown(), QStringLiteral("English/&New/Remove"));
    }
    void layoutPlacesEveryPart_data()
    {
        QTest::addColumn<zelGridListLayoutInput>("in");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("grid");
        QTest::addColumn<QString>("bar");
        QTest::addColumn<QStringList>("buttons"); // Add, Edit, Delete, Up, Down

        const QStringList none{"-", "-", "-", "-", "-"};
        QTest::newRow("bar below")
            << input(false, 15) << "-"
            << "120,240,5760,3205"
            << "1200,3565,4680,315"
            << QStringList{"-", "-", "-", "120,3565,315,315", "495,3565,315,315"};
        QTest::newRow("column beside")
            << input(true, 15) << "-"
            << "120,240,4560,3640"
            << "-"
            << QStringList{"4800,240,1080,315", "4800,615,1080,315", "4800,990,1080,315",
                           "4800,1485,1080,315", "4800,1860,1080,315"};
        QTest::newRow("beside, only remove")
            << input(true, 4) << "-"
            << "120,240,4560,3640"
            << "-"
            << QStringList{"-", "-", "4800,240,1080,315", "4800,735,1080,315",
                           "4800,1110,1080,315"};
        QTest::newRow("caption") << input(false, 0, true) << "120,0,5760,240"
                                 << "120,240,5760,3640"
                                 << "-" << none;
        auto margins = input(false, 0);
        margins.Margin = 0;
        margins.TopMargin = 600;
        QTest::newRow("margins") << margins << "-"
                                 << "0,600,6000,3400"
                                 << "-" << none;
        // Too small for its parts: nothing gets a negative size.
        QTest::newRow("tiny") << input(false, 15, false, 100) << "-"
                              << "120,240,0,0"
                              << "-4700,-335,4680,315"
                              << QStringList{"-", "-", "-", "120,-335,315,315", "495,-335,315,315"};
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
        g.show();
        QVERIFY(QTest::qWaitForWindowExposed(&g));
        QCOMPARE(g.GridLayout().Grid, QRect(120, 240, 5760, 4500 - 240 - 120 - 315 - 120));
        QCOMPARE(g.Grid()->geometry(), QRect(8, 16, 384, 247));
        auto *bar = g.findChild<QWidget *>(QStringLiteral("mpbProps"));
        QCOMPARE(bar->geometry().topLeft(),
                 QPoint((6000 - 120 - 4680) / 15, (4500 - 120 - 315) / 15));
        QVERIFY(!bar->isHidden());
        QVERIFY(!g.findChild<QWidget *>(QStringLiteral("lblCaption"))->isHidden());

        g.SetButtonsOnSide(true);
        QVERIFY(bar->isHidden());
        auto *add = g.findChild<QWidget *>(QStringLiteral("cmdAdd"), Qt::FindDirectChildrenOnly);
        QVERIFY(!add->isHidden());
        QCOMPARE(add->geometry(), QRect((6000 - 120 - 1080) / 15, 16, 72, 21));
        QCOMPARE(g.Grid()->width(), (6000 - 3 * 120 - 1080) / 15);
    }

    void propertiesByNameAndPersisted()
    {
        zelTestScope scope;
        zelGridList g;
        QStringList marked;
        connect(&g, &zelGridList::PropertyChanged, [&](const QString &n) { marked << n; });
        g.InitProperties();
        zelMemoryPropertyBag defaults;
        g.WriteProperties(defaults);
        QCOMPARE(defaults.Count(), 0);
        QVERIFY(marked.contains(QStringLiteral("Margin")));
        QVERIFY(!marked.contains(QStringLiteral("Language")));

        g.AddColumn(QStringLiteral("Name"));
        const QList<QPair<const char *, QVariant>> values{
            {"Language", QStringLiteral("German")},
            {"Caption", QStringLiteral("Layers")},
            {"AutoSizeColZero", false},
            {"CheckBoxes", true},
            {"Enabled", false},
            {"SelectionCol", 1},
            {"AllowRepeatClicks", true},
            {"ButtonsOnSide", true},
            {"ButtonsVisible", 12},
            {"ButtonsEnabled", 8},
            {"HighlightSelection", 1},
            {"BorderStyle", 0},
            {"TopMargin", 480},
            {"Margin", 60},
            {"MultiSelect", true},
            {"EditOnFocus", true},
        };
        for (const auto &[name, value] : values) {
            QVERIFY2(zel::SetProperty(&g, QString::fromLatin1(name), value), name);
            QCOMPARE(zel::GetProperty(&g, QString::fromLatin1(name)), value);
        }
        QCOMPARE(marked.last(), QStringLiteral("EditOnFocus"));
        for (const char *name : {"Columns", "Items", "SelectedItems"}) {
            const QVariant v = zel::GetProperty(&g, QString::fromLatin1(name));
            QVERIFY2(qvariant_cast<QObject *>(v), name);
            QVERIFY(!zel::SetProperty(&g, QString::fromLatin1(name), v));
        }

        // Everything but the language and the multi-selection is kept.
        zelMemoryPropertyBag bag;
        g.WriteProperties(bag);
        QCOMPARE(bag.Count(), 14);
        zelGridList back;
        back.ReadProperties(bag);
        for (const auto &[name, value] : values) {
            const bool kept = qstrcmp(name, "Language") && qstrcmp(name, "MultiSelect");
            QCOMPARE(bag.Contains(QString::fromLatin1(name)), kept);
            if (kept)
                QCOMPARE(zel::GetProperty(&back, QString::fromLatin1(name)), value);
        }
        QCOMPARE(back.Language(), QStringLiteral("English"));
        QCOMPARE(back.Columns()->Count(), 1); // the check column
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void badStoredValuesAreLoggedAndSkipped()
    {
        zelTestScope scope;
        zelMemoryPropertyBag bag;
        bag.SetValue(QStringLiteral("Margin"), QStringLiteral("wide"));
        bag.SetValue(QStringLiteral("HighlightSelection"), 7);
        bag.SetValue(QStringLiteral("BorderStyle"), 5);
        bag.SetValue(QStringLiteral("CheckBoxes"), QStringLiteral("maybe"));
        bag.SetValue(QStringLiteral("Caption"), QStringLiteral("Still read"));
        bag.SetValue(QStringLiteral("TopMargin"), 300);
        zelGridList g;
        g.ReadProperties(bag);
        QCOMPARE(g.Margin(), 120);
        QCOMPARE(g.HighlightSelection(), ZEL_Highlight_WithFocus);
        QCOMPARE(g.BorderStyle(), 1);
        QCOMPARE(g.CheckBoxes(), false);
        QCOMPARE(g.Caption(), QStringLiteral("Still read"));
        QCOMPARE(g.TopMargin(), 300);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.UserControl_ReadProperties")), 2);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.HighlightSelection Let")), 1);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.BorderStyle Let")), 1);
        // A wrong type by name is refused the same way.
        zel::SetProperty(&g, QStringLiteral("Margin"), QStringLiteral("x"));
        QCOMPARE(g.Margin(), 120);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.Margin Let")), 1);
    }

    void lateBoundMethodsByName()
    {
        zelTestScope scope;
        zelGridList g;
        auto call = [&](const char *name, const QVariantList &args = {}) {
            bool ok = false;
            const QVariant r = zel::CallByName(&g, QString::fromLatin1(name), args, &ok);
            if (!ok)
                qWarning("not called: %s", name);
            return ok ? r : QVariant(QStringLiteral("<not called>"));
        };
        auto object = [&](const char *name, const QVariantList &args) {
            return qvariant_cast<QObject *>(call(name, args));
        };
        const QString a = QStringLiteral("a"), b = QStringLiteral("b");
        QVERIFY(object("AddColumn", {QStringLiteral("Name")}));
        QVERIFY(object("AddColumnEx",
                       {QStringLiteral("Value"), int(ZEL_ColumnAlignRight), 5, 2, 1200}));
        QVERIFY(object("AddItem", {QStringLiteral("A\t1"), a}));
        QVERIFY(object("AddItemEx", {QStringLiteral("B\t2"), b, QVariant(), -1, true}));
        QVERIFY(object("SetItem", {QStringLiteral("B\t3"), b}));
        QCOMPARE(call("SetItemColor", {1, 255}).toBool(), true);
        QCOMPARE(call("SetItemColorByKey", {b, 255}).toBool(), true);
        QCOMPARE(call("CheckItem", {1, true}).toBool(), true);
        QCOMPARE(call("CheckItemByKey", {b, true}).toBool(), true);
        QCOMPARE(call("SelectItem", {b}).toBool(), true);
        QCOMPARE(g.CurrentRow(), 2);
        QCOMPARE(zel::GetProperty(object("RowData", {2}), QStringLiteral("Data")).toString(),
                 QStringLiteral("B\t3"));
        QCOMPARE(call("Refresh").toBool(), true);
        call("RefreshColumns");
        call("ChangeEnabledButtons", {int(ZEL_PrpButton_Remove), false});
        QCOMPARE(g.ButtonsEnabled(), 11);
        call("ChangeVisibleButtons", {int(ZEL_PrpButton_Option0), true});
        QCOMPARE(g.ButtonsVisible(), 31);
        call("SetOptionButtonCaption", {0, QStringLiteral("Import")});
        QCOMPARE(call("OptionButtonCaption", {0}).toString(), QStringLiteral("Import"));
        QCOMPARE(call("LoadOptionButtonPicture", {0, QVariant()}).toBool(), false);
        call("FocusOnButton", {int(ZEL_PrpButton_Add)});
        QCOMPARE(call("RemoveItem", {1}).toBool(), true);
        QCOMPARE(call("RemoveItemByKey", {QStringLiteral("B")}).toBool(), true);
        call("AddItem", {QStringLiteral("C\t1"), QStringLiteral("c")});
        QCOMPARE(call("Clear").toBool(), true);
        QCOMPARE(g.Items()->Count(), 0);
        call("InitProperties");
        QCOMPARE(g.ButtonsVisible(), 15);
    }

    void eventsHaveTheirParameters()
    {
        const QMetaObject *mo = &zelGridList::staticMetaObject;
        // Name, then parameter names; a trailing "&" marks a by-reference one.
        const QStringList expected{
            "NewRow lRow",
            "Delete lRow sKey",
            "RowMoved lOldRow lNewRow&",
            "Edit lRow",
            "EditCell lRow lColumn sText",
            "EditCellByRef lRow lColumn sText&",
            "SelectedItem sKey lRow",
            "DblClick",
            "BeforeEdit lRow lColumn bCancel&",
            "SelectionChanged",
            "ItemChecked lRow oRow",
            "OptionClicked lIndex",
        };
        for (const QString &e : expected) {
            QStringList found;
            for (int i = mo->methodOffset(); i < mo->methodCount(); ++i) {
                const QMetaMethod m = mo->method(i);
                if (m.methodType() != QMetaMethod::Signal ||
                    e.section(QLatin1Char(' '), 0, 0) != QString::fromLatin1(m.name()))
                    continue;
                found << QString::fromLatin1(m.name());
                for (int p = 0; p < m.parameterCount(); ++p) {
                    const QByteArray type = m.parameterTypes().at(p);
                    const bool byRef = type.endsWith('&') && !type.startsWith("const");
                    found << QString::fromLatin1(m.parameterNames().at(p) + (byRef ? "&" : ""));
                }
            }
            QCOMPARE(found.join(QLatin1Char(' ')), e);
        }
    }

    void programIdAndWidgetNames()
    {
        zelTestScope scope;
        std::unique_ptr<QObject> o(zel::CreateObject(QStringLiteral("zelCtrl.zelGridList")));
        QVERIFY(qobject_cast<zelGridList *>(o.get()));
        for (const char *name : {"vfgItems", "cmdAdd", "cmdDelete", "cmdEdit", "cmdUp", "cmdDown",
                                 "mpbProps", "lblCaption"})
            QVERIFY2(o->findChild<QWidget *>(QString::fromLatin1(name), Qt::FindDirectChildrenOnly),
                     name);
        QCOMPARE(o->findChild<QWidget *>(QStringLiteral("mpbProps"))->metaObject()->className(),
                 "zelPrpButtons");
    }
};

QTEST_MAIN(tst_zelGridList)
#include "tst_zelGridList.moc"
