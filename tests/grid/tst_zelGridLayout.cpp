// Where the grid list puts its caption, grid and buttons, in twips.

#include "grid/zelGridLayout.h"
#include "grid/zelGridList.h"
#include "zelFakePlatform.h"

#include <QTableView>
#include <QtTest>

Q_DECLARE_METATYPE(zelGridListLayoutInput)

namespace {

zelGridListLayoutInput input(qint32 w, qint32 h, bool side, qint32 bits, bool caption = false)
{
    zelGridListLayoutInput in;
    in.Width = w;
    in.Height = h;
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

class tst_zelGridLayout : public QObject
{
    Q_OBJECT

private slots:
    void placesEveryPart_data();
    void placesEveryPart();
    void controlAppliesItsLayout();
};

void tst_zelGridLayout::placesEveryPart_data()
{
    QTest::addColumn<zelGridListLayoutInput>("in");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("grid");
    QTest::addColumn<QString>("bar");
    // Add, Edit, Delete, Up, Down
    QTest::addColumn<QStringList>("buttons");

    QTest::newRow("bar below") << input(6000, 4000, false, 15) << "-"
                               << "120,240,5760,3205"
                               << "1200,3565,4680,315"
                               << QStringList{"-", "-", "-", "120,3565,315,315",
                                              "495,3565,315,315"};
    QTest::newRow("column beside")
        << input(6000, 4000, true, 15) << "-"
        << "120,240,4560,3640"
        << "-"
        << QStringList{"4800,240,1080,315", "4800,615,1080,315", "4800,990,1080,315",
                       "4800,1485,1080,315", "4800,1860,1080,315"};
    QTest::newRow("beside, only remove")
        << input(6000, 4000, true, 4) << "-"
        << "120,240,4560,3640"
        << "-"
        << QStringList{"-", "-", "4800,240,1080,315", "4800,735,1080,315", "4800,1110,1080,315"};
    QTest::newRow("beside, option buttons only")
        << input(6000, 4000, true, 16) << "-"
        << "120,240,4560,3640"
        << "-" << QStringList{"-", "-", "-", "4800,240,1080,315", "4800,615,1080,315"};
    QTest::newRow("no buttons") << input(6000, 4000, false, 0) << "-"
                                << "120,240,5760,3640"
                                << "-" << QStringList{"-", "-", "-", "-", "-"};
    QTest::newRow("no buttons beside") << input(6000, 4000, true, 0) << "-"
                                       << "120,240,5760,3640"
                                       << "-" << QStringList{"-", "-", "-", "-", "-"};
    QTest::newRow("caption") << input(6000, 4000, false, 0, true) << "120,0,5760,240"
                             << "120,240,5760,3640"
                             << "-" << QStringList{"-", "-", "-", "-", "-"};
    auto margins = input(6000, 4000, false, 0);
    margins.Margin = 0;
    margins.TopMargin = 600;
    QTest::newRow("margins") << margins << "-"
                             << "0,600,6000,3400"
                             << "-" << QStringList{"-", "-", "-", "-", "-"};
    // Too small for its parts: nothing gets a negative size.
    QTest::newRow("tiny") << input(100, 100, false, 15) << "-"
                          << "120,240,0,0"
                          << "-4700,-335,4680,315"
                          << QStringList{"-", "-", "-", "120,-335,315,315", "495,-335,315,315"};
    auto tall = input(6000, 4000, false, 15);
    tall.BarSize = QSize(2000, 400);
    QTest::newRow("taller bar") << tall << "-"
                                << "120,240,5760,3120"
                                << "3880,3480,2000,400"
                                << QStringList{"-", "-", "-", "120,3480,315,315",
                                               "495,3480,315,315"};
}

void tst_zelGridLayout::placesEveryPart()
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

void tst_zelGridLayout::controlAppliesItsLayout()
{
    zelTestScope scope;
    zelGridList g;
    g.SetCaption(QStringLiteral("Layers"));
    g.resize(400, 300); // 6000 x 4500 twips
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    const zelGridListLayout &l = g.GridLayout();
    QCOMPARE(l.Grid, QRect(120, 240, 5760, 4500 - 240 - 120 - 315 - 120));
    QCOMPARE(g.Grid()->geometry(), QRect(8, 16, 384, 247));
    auto *bar = g.findChild<QWidget *>(QStringLiteral("mpbProps"));
    QVERIFY(bar);
    QCOMPARE(bar->geometry().topLeft(), QPoint((6000 - 120 - 4680) / 15, (4500 - 120 - 315) / 15));
    QVERIFY(!bar->isHidden());
    QVERIFY(!g.findChild<QWidget *>(QStringLiteral("lblCaption"))->isHidden());

    g.SetButtonsOnSide(true);
    QVERIFY(bar->isHidden());
    auto *add = g.findChild<QWidget *>(QStringLiteral("cmdAdd"), Qt::FindDirectChildrenOnly);
    QVERIFY(!add->isHidden());
    QCOMPARE(add->geometry(), QRect((6000 - 120 - 1080) / 15, 16, 72, 21));
    QCOMPARE(g.Grid()->width(), (6000 - 3 * 120 - 1080) / 15);
}

QTEST_MAIN(tst_zelGridLayout)
#include "tst_zelGridLayout.moc"
