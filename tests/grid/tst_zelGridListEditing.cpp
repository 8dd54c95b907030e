// What the user does in a grid list and the events the host gets for it:
// the buttons, moving rows, selecting, and editing cells in place.

#include "grid/zelGridList.h"
#include "zelFakePlatform.h"
#include "zelGridTestSupport.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

QPushButton *button(zelGridList &g, const QString &name)
{
    if (name.startsWith(QLatin1String("bar"))) {
        const QString inBar = QStringLiteral("cmd") + name.mid(3);
        return g.findChild<QWidget *>(QStringLiteral("mpbProps"))->findChild<QPushButton *>(inBar);
    }
    return g.findChild<QPushButton *>(name, Qt::FindDirectChildrenOnly);
}

void makeCurrent(zelGridList &g, int row, int column = 0)
{
    if (row < 1)
        g.Grid()->selectionModel()->clear();
    else
        g.Grid()->setCurrentIndex(g.Grid()->model()->index(row - 1, column));
    QCoreApplication::processEvents();
}

void showList(zelGridList &g)
{
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    g.Grid()->setFocus();
    QCoreApplication::processEvents();
}

QPoint cellCentre(zelGridList &g, int row, int column)
{
    return g.Grid()->visualRect(g.Grid()->model()->index(row - 1, column)).center();
}

// Opens the editor of a cell with F2 and answers it, or nullptr.
QWidget *openEditor(zelGridList &g, int row, int column)
{
    makeCurrent(g, row, column);
    QTest::keyClick(g.Grid(), Qt::Key_F2);
    return g.Grid()->findChild<QWidget *>(QStringLiteral("txtEdit"))
               ? g.Grid()->findChild<QWidget *>(QStringLiteral("txtEdit"))
               : g.Grid()->findChild<QWidget *>(QStringLiteral("cboEdit"));
}

} // namespace

class tst_zelGridListEditing : public QObject
{
    Q_OBJECT

private slots:
    void buttonsReportAndMove_data();
    void buttonsReportAndMove();
    void hostRedirectsAMovedRow();
    void optionButtonsReachTheHost();
    void userSelectionRaisesOnePairOfEvents();
    void currentAndSelectionFollowTheirRows_data();
    void currentAndSelectionFollowTheirRows();
    void multiSelectionCollectsTheSelectedRows();
    void inPlaceEdit_data();
    void inPlaceEdit();
    void enterStartsAndEndsAnEdit();
    void hostRemovesTheEditedRow();
    void checkBoxesToggleByClickAndSpace_data();
    void checkBoxesToggleByClickAndSpace();
    void dropDownOfTenThousandEntries();
    void editableDropDownTakesFreeText();
    void colourCellTakesAColourFromTheDialog_data();
    void colourCellTakesAColourFromTheDialog();
    void doubleClickIsReported();
    void editOnFocusStartsEditing();
};

void tst_zelGridListEditing::buttonsReportAndMove_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("order");
    QTest::addColumn<int>("currentAfter");

    QTest::newRow("add below the current row") << "cmdAdd" << 2 << "NewRow(3)"
                                               << "ABC" << 2;
    QTest::newRow("add in an empty selection") << "cmdAdd" << 0 << "NewRow(1)"
                                               << "ABC" << 0;
    QTest::newRow("bar add") << "barAdd" << 3 << "NewRow(4)"
                             << "ABC" << 3;
    QTest::newRow("edit") << "cmdEdit" << 2 << "Edit(2)"
                          << "ABC" << 2;
    QTest::newRow("bar properties edit") << "barProperties" << 1 << "Edit(1)"
                                         << "ABC" << 1;
    QTest::newRow("delete") << "cmdDelete" << 2 << "Delete(2,b)"
                            << "ABC" << 2;
    QTest::newRow("bar remove deletes") << "barRemove" << 3 << "Delete(3,c)"
                                        << "ABC" << 3;
    QTest::newRow("delete without a row") << "cmdDelete" << 0 << ""
                                          << "ABC" << 0;
    QTest::newRow("bar help is not for the list") << "barHelp" << 2 << ""
                                                  << "ABC" << 2;
    QTest::newRow("up") << "cmdUp" << 2 << "RowMoved(2,1);SelectedItem(b,1);SelectionChanged"
                        << "BAC" << 1;
    QTest::newRow("up from the last")
        << "cmdUp" << 3 << "RowMoved(3,2);SelectedItem(c,2);SelectionChanged"
        << "ACB" << 2;
    QTest::newRow("up on the first does nothing") << "cmdUp" << 1 << ""
                                                  << "ABC" << 1;
    QTest::newRow("down") << "cmdDown" << 1 << "RowMoved(1,2);SelectedItem(a,2);SelectionChanged"
                          << "BAC" << 2;
    QTest::newRow("down on the last does nothing") << "cmdDown" << 3 << ""
                                                   << "ABC" << 3;
    QTest::newRow("down without a row does nothing") << "cmdDown" << 0 << ""
                                                     << "ABC" << 0;
}

void tst_zelGridListEditing::buttonsReportAndMove()
{
    QFETCH(QString, button);
    QFETCH(int, current);
    QFETCH(QString, events);
    QFETCH(QString, order);
    QFETCH(int, currentAfter);
    zelTestScope scope;
    auto g = makeList();
    g->SetButtonsOnSide(button.startsWith(QLatin1String("cmd")));
    zelGridEvents ev;
    makeCurrent(*g, current);
    ev.watch(*g);
    QPushButton *b = ::button(*g, button);
    QVERIFY(b);
    b->click();
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), events);
    QCOMPARE(::order(*g), order);
    QCOMPARE(g->CurrentRow(), currentAfter);
    QCOMPARE(outOfStep(*g), QString());
    // Keys move with their rows.
    for (int r = 1; r <= 3; ++r)
        QCOMPARE(g->Items()->IndexOfKey(g->Items()->Item(r)->Key()), r);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridListEditing::hostRedirectsAMovedRow()
{
    zelTestScope scope;
    auto g = makeList();
    g->SetButtonsOnSide(true);
    makeCurrent(*g, 2);
    zelGridEvents ev;
    ev.redirectMove = 3;
    ev.watch(*g);
    button(*g, QStringLiteral("cmdUp"))->click();
    QCOMPARE(order(*g), QStringLiteral("BAC"));
    QCOMPARE(g->CurrentRow(), 3);
}

void tst_zelGridListEditing::optionButtonsReachTheHost()
{
    zelTestScope scope;
    auto g = makeList();
    g->SetButtonsVisible(15 | 16 | 64);
    g->SetButtonsEnabled(15 | 16 | 64);
    zelGridEvents ev;
    ev.watch(*g);
    auto *bar = g->findChild<QWidget *>(QStringLiteral("mpbProps"));
    bar->findChild<QPushButton *>(QStringLiteral("cmdOption2"))->click();
    bar->findChild<QPushButton *>(QStringLiteral("cmdOption0"))->click();
    QCOMPARE(ev.joined(), QStringLiteral("OptionClicked(2);OptionClicked(0)"));
}

void tst_zelGridListEditing::userSelectionRaisesOnePairOfEvents()
{
    zelTestScope scope;
    auto g = makeList();
    showList(*g);
    zelGridEvents ev;
    ev.watch(*g);
    QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, {}, cellCentre(*g, 2, 1));
    QCOMPARE(ev.joined(), QStringLiteral("SelectedItem(b,2);SelectionChanged"));
    ev.events.clear();
    QTest::keyClick(g->Grid(), Qt::Key_Down);
    QCOMPARE(ev.joined(), QStringLiteral("SelectedItem(c,3);SelectionChanged"));
    ev.events.clear();
    // Clicking the current row again changes nothing.
    QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, {}, cellCentre(*g, 3, 1));
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), QString());
    // The host's own selecting raises nothing.
    QVERIFY(g->SelectItem(QStringLiteral("A")));
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), QString());
    QCOMPARE(g->CurrentRow(), 1);
    QVERIFY(!g->SelectItem(QStringLiteral("zz")));
    QCOMPARE(g->CurrentRow(), 1);
    QCOMPARE(g->SelectedItems()->Count(), 1);
    QCOMPARE(g->SelectedItems()->Item(1)->Key(), QStringLiteral("a"));
}

void tst_zelGridListEditing::currentAndSelectionFollowTheirRows_data()
{
    QTest::addColumn<bool>("multi");
    QTest::addColumn<QString>("selected"); // keys; the last one is current
    QTest::addColumn<int>("remove");       // row removed, or 0
    QTest::addColumn<int>("insert");       // row inserted at, or 0
    QTest::addColumn<QString>("selectedAfter");
    QTest::addColumn<QString>("currentAfter");
    QTest::addColumn<QString>("events");

    QTest::newRow("remove above the current") << false << "d" << 2 << 0 << "d"
                                              << "d"
                                              << "";
    QTest::newRow("remove below the current") << false << "b" << 4 << 0 << "b"
                                              << "b"
                                              << "";
    QTest::newRow("remove the current") << false << "c" << 3 << 0 << "d"
                                        << "d"
                                        << "SelectedItem(d,3);SelectionChanged";
    QTest::newRow("remove the current last row") << false << "e" << 5 << 0 << "d"
                                                 << "d"
                                                 << "SelectedItem(d,4);SelectionChanged";
    QTest::newRow("insert above the current") << false << "c" << 0 << 1 << "c"
                                              << "c"
                                              << "";
    QTest::newRow("insert at the current") << false << "c" << 0 << 3 << "c"
                                           << "c"
                                           << "";
    QTest::newRow("insert below the current") << false << "b" << 0 << 4 << "b"
                                              << "b"
                                              << "";
    QTest::newRow("several, remove between") << true << "bde" << 3 << 0 << "bde"
                                             << "e"
                                             << "";
    QTest::newRow("several, remove one of them") << true << "bce" << 3 << 0 << "be"
                                                 << "e"
                                                 << "";
    QTest::newRow("several, insert among them") << true << "abe" << 0 << 2 << "abe"
                                                << "e"
                                                << "";
}

void tst_zelGridListEditing::currentAndSelectionFollowTheirRows()
{
    QFETCH(bool, multi);
    QFETCH(QString, selected);
    QFETCH(int, remove);
    QFETCH(int, insert);
    QFETCH(QString, selectedAfter);
    QFETCH(QString, currentAfter);
    QFETCH(QString, events);
    zelTestScope scope;
    auto g = makeList(5);
    g->SetMultiSelect(multi);
    if (multi)
        g->Grid()->selectionModel()->clear();
    for (const QChar k : selected)
        g->SelectItem(QString(k));
    QCoreApplication::processEvents();
    zelGridEvents ev;
    ev.watch(*g);
    if (remove)
        QVERIFY(g->RemoveItem(remove));
    else
        QVERIFY(g->AddItem(QStringLiteral("X\t0"), QStringLiteral("x"), QVariant(), insert));
    QCoreApplication::processEvents();
    QString keys;
    for (const auto &r : *g->SelectedItems())
        keys += r->Key();
    QCOMPARE(keys, selectedAfter);
    QCOMPARE(g->RowData(g->CurrentRow())->Key(), currentAfter);
    QCOMPARE(ev.joined(), events);
    // Each row object knows whether it is selected.
    for (const auto &r : *g->Items())
        QCOMPARE(r->Selected(), selectedAfter.contains(r->Key()));
    QCOMPARE(outOfStep(*g), QString());
}

void tst_zelGridListEditing::multiSelectionCollectsTheSelectedRows()
{
    zelTestScope scope;
    auto g = makeList(4);
    g->SetMultiSelect(true);
    showList(*g);
    QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, {}, cellCentre(*g, 1, 1));
    QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      cellCentre(*g, 3, 1));
    QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      cellCentre(*g, 4, 1));
    auto selected = g->SelectedItems();
    QStringList keys;
    for (const auto &r : *selected)
        keys << r->Key();
    QCOMPARE(keys, (QStringList{"a", "c", "d"}));
    QCOMPARE(g->Items()->Item(2)->Selected(), false);
    QCOMPARE(g->Items()->Item(3)->Selected(), true);
    // Ctrl-click again takes a row out.
    QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      cellCentre(*g, 3, 1));
    QCOMPARE(g->SelectedItems()->Count(), 2);
    QCOMPARE(g->Items()->Item(3)->Selected(), false);
    // The collection handed out is the host's: rows added later leave it be.
    g->AddItem(QStringLiteral("Z\t0"), QStringLiteral("z"));
    QCOMPARE(selected->Count(), 3);
}

void tst_zelGridListEditing::inPlaceEdit_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("veto");
    QTest::addColumn<QString>("replace");
    QTest::addColumn<bool>("escape");
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("cell");

    QTest::newRow("typed text stays")
        << 0 << false << "" << false << "BeforeEdit(2,0);EditCell(2,0,new);EditCellByRef(2,0,new)"
        << "new";
    QTest::newRow("host vetoes") << 0 << true << "" << false << "BeforeEdit(2,0)"
                                 << "B";
    QTest::newRow("host changes the text")
        << 0 << false << "HOST" << false
        << "BeforeEdit(2,0);EditCell(2,0,new);EditCellByRef(2,0,new)"
        << "HOST";
    QTest::newRow("escape keeps the text") << 0 << false << "" << true << "BeforeEdit(2,0)"
                                           << "B";
    QTest::newRow("column not editable") << 1 << false << "" << false << ""
                                         << "2";
}

void tst_zelGridListEditing::inPlaceEdit()
{
    QFETCH(int, column);
    QFETCH(bool, veto);
    QFETCH(QString, replace);
    QFETCH(bool, escape);
    QFETCH(QString, events);
    QFETCH(QString, cell);
    zelTestScope scope;
    auto g = makeList();
    showList(*g);
    zelGridEvents ev;
    ev.vetoEdit = veto;
    ev.replaceText = replace;
    makeCurrent(*g, 2, column);
    ev.watch(*g);
    auto *editor = qobject_cast<QLineEdit *>(openEditor(*g, 2, column));
    QCOMPARE(editor != nullptr, !veto && column == 0);
    if (editor) {
        QCOMPARE(editor->text(), QStringLiteral("B"));
        editor->setText(QStringLiteral("new"));
        QTest::keyClick(editor, escape ? Qt::Key_Escape : Qt::Key_Return);
    }
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), events);
    QCOMPARE(g->Items()->Item(2)->Cell(column).toString(), cell);
    QCOMPARE(g->Grid()->model()->index(1, column).data().toString(), cell);
    QCOMPARE(outOfStep(*g), QString());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridListEditing::enterStartsAndEndsAnEdit()
{
    zelTestScope scope;
    auto g = makeList();
    showList(*g);
    makeCurrent(*g, 1, 0);
    zelGridEvents ev;
    ev.watch(*g);
    QTest::keyClick(g->Grid(), Qt::Key_Return);
    auto *editor = g->Grid()->findChild<QLineEdit *>(QStringLiteral("txtEdit"));
    QVERIFY(editor);
    editor->setText(QStringLiteral("Alpha"));
    QTest::keyClick(editor, Qt::Key_Enter);
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(),
             QStringLiteral("BeforeEdit(1,0);EditCell(1,0,Alpha);EditCellByRef(1,0,Alpha)"));
    QCOMPARE(g->Items()->Item(1)->Data(), QStringLiteral("Alpha\t1"));
}

void tst_zelGridListEditing::hostRemovesTheEditedRow()
{
    zelTestScope scope;
    auto g = makeList();
    showList(*g);
    const auto once = connect(g.get(), &zelGridList::EditCell, g.get(),
                              [&](qint32 lRow, qint32, const QString &) { g->RemoveItem(lRow); });
    QString byRef;
    connect(g.get(), &zelGridList::EditCellByRef, g.get(),
            [&](qint32, qint32, QString &sText) { byRef = sText; });
    auto *editor = qobject_cast<QLineEdit *>(openEditor(*g, 2, 0));
    QVERIFY(editor);
    editor->setText(QStringLiteral("gone"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(order(*g), QStringLiteral("AC"));
    QCOMPARE(byRef, QStringLiteral("gone"));
    QCOMPARE(outOfStep(*g), QString());
    // The grid goes on editing as before.
    disconnect(once);
    auto *next = qobject_cast<QLineEdit *>(openEditor(*g, 1, 0));
    QVERIFY(next);
    next->setText(QStringLiteral("Alpha"));
    QTest::keyClick(next, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(g->Items()->Item(1)->Cell(0).toString(), QStringLiteral("Alpha"));
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridListEditing::checkBoxesToggleByClickAndSpace_data()
{
    QTest::addColumn<bool>("byClick");
    QTest::addColumn<bool>("veto");
    QTest::addColumn<QString>("events");
    QTest::addColumn<bool>("checked");

    QTest::newRow("space") << false << false << "BeforeEdit(2,0);ItemChecked(2,on)" << true;
    QTest::newRow("click") << true << false << "BeforeEdit(2,0);ItemChecked(2,on)" << true;
    QTest::newRow("vetoed space") << false << true << "BeforeEdit(2,0)" << false;
    QTest::newRow("vetoed click") << true << true << "BeforeEdit(2,0)" << false;
}

void tst_zelGridListEditing::checkBoxesToggleByClickAndSpace()
{
    QFETCH(bool, byClick);
    QFETCH(bool, veto);
    QFETCH(QString, events);
    QFETCH(bool, checked);
    zelTestScope scope;
    auto g = makeList(0);
    g->SetCheckBoxes(true);
    for (const char *k : {"a", "b"})
        g->AddItem(QStringLiteral("\t") + QString::fromLatin1(k).toUpper() + QStringLiteral("\t1"),
                   QString::fromLatin1(k));
    QCoreApplication::processEvents();
    showList(*g);
    makeCurrent(*g, 2, 0);
    zelGridEvents ev;
    ev.vetoEdit = veto;
    ev.watch(*g);
    if (byClick)
        QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, {}, cellCentre(*g, 2, 0));
    else
        QTest::keyClick(g->Grid(), Qt::Key_Space);
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), events);
    QCOMPARE(g->Items()->Item(2)->Checked(), checked);
    QCOMPARE(g->Items()->Item(1)->Checked(), false);
    QCOMPARE(g->Grid()->model()->index(1, 0).data(Qt::CheckStateRole).toInt(),
             int(checked ? Qt::Checked : Qt::Unchecked));
    // The check column never opens a text editor.
    QVERIFY(!g->Grid()->findChild<QLineEdit *>(QStringLiteral("txtEdit")));
}

void tst_zelGridListEditing::dropDownOfTenThousandEntries()
{
    zelTestScope scope;
    auto g = makeList();
    QStringList entries;
    for (int i = 0; i < 10000; ++i)
        entries << QStringLiteral("Class %1").arg(i);
    g->Columns()->Item(QStringLiteral("Value"))->SetComboList(entries.join(QLatin1Char('|')));
    g->Columns()->Item(QStringLiteral("Value"))->SetAllowEdit(true);
    g->RefreshColumns();
    showList(*g);
    zelGridEvents ev;
    ev.watch(*g);
    auto *combo = qobject_cast<QComboBox *>(openEditor(*g, 3, 1));
    QVERIFY(combo);
    QCOMPARE(combo->count(), 10000);
    QVERIFY(!combo->isEditable());
    QCOMPARE(combo->itemText(9999), QStringLiteral("Class 9999"));
    combo->setCurrentIndex(9999);
    QTest::keyClick(combo, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(g->Items()->Item(3)->Data(), QStringLiteral("C\tClass 9999"));
    QCOMPARE(ev.events.last(), QStringLiteral("EditCellByRef(3,1,Class 9999)"));
}

void tst_zelGridListEditing::editableDropDownTakesFreeText()
{
    zelTestScope scope;
    auto g = makeList();
    g->Columns()->Item(1)->SetComboList(QStringLiteral("|Roads|Rivers"));
    g->RefreshColumns();
    showList(*g);
    auto *combo = qobject_cast<QComboBox *>(openEditor(*g, 1, 0));
    QVERIFY(combo);
    QVERIFY(combo->isEditable());
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->currentText(), QStringLiteral("A")); // the cell's own text
    combo->setEditText(QStringLiteral("Lakes"));
    QTest::keyClick(combo, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(g->Items()->Item(1)->Cell(0).toString(), QStringLiteral("Lakes"));
}

void tst_zelGridListEditing::colourCellTakesAColourFromTheDialog_data()
{
    QTest::addColumn<bool>("accept");
    QTest::addColumn<QString>("events");
    QTest::addColumn<QColor>("colour");

    QTest::newRow("chosen") << true
                            << "BeforeEdit(1,1);EditCell(1,1,16711680);"
                               "EditCellByRef(1,1,16711680)"
                            << QColor(0, 0, 255);
    QTest::newRow("cancelled") << false << "BeforeEdit(1,1)" << QColor(255, 0, 0);
}

void tst_zelGridListEditing::colourCellTakesAColourFromTheDialog()
{
    QFETCH(bool, accept);
    QFETCH(QString, events);
    QFETCH(QColor, colour);
    zelTestScope scope;
    zelGridList g;
    g.AddColumn(QStringLiteral("Class"));
    g.AddColumnEx(QStringLiteral("Colour"), ZEL_ColumnAlignLeft, 36)->SetAllowEdit(true);
    g.RefreshColumns();
    g.AddItem(QStringLiteral("Roads\t255"), QStringLiteral("r"));
    showList(g);
    scope.fake().colorDialogAccepts = accept;
    scope.fake().colorDialogAnswer = 0xFF0000;
    zelGridEvents ev;
    makeCurrent(g, 1, 1);
    ev.watch(g);
    QTest::keyClick(g.Grid(), Qt::Key_F2);
    QCOMPARE(ev.joined(), events);
    QCOMPARE(scope.fake().colorDialogPresets, QList<quint32>{255});
    QCOMPARE(g.Grid()->model()->index(0, 1).data(Qt::BackgroundRole).value<QBrush>().color(),
             colour);
    QCOMPARE(g.Grid()->model()->index(0, 1).data().toString(), QString());
}

void tst_zelGridListEditing::doubleClickIsReported()
{
    zelTestScope scope;
    auto g = makeList();
    showList(*g);
    zelGridEvents ev;
    ev.watch(*g);
    QTest::mouseDClick(g->Grid()->viewport(), Qt::LeftButton, {}, cellCentre(*g, 2, 1));
    QCoreApplication::processEvents();
    QVERIFY(ev.events.contains(QStringLiteral("DblClick")));
    // A double click on an editable cell also starts its edit.
    ev.events.clear();
    QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, {}, cellCentre(*g, 3, 0));
    QTest::mouseDClick(g->Grid()->viewport(), Qt::LeftButton, {}, cellCentre(*g, 3, 0));
    QCoreApplication::processEvents();
    QVERIFY2(ev.events.contains(QStringLiteral("BeforeEdit(3,0)")), qPrintable(ev.joined()));
    QVERIFY(ev.events.contains(QStringLiteral("DblClick")));
}

void tst_zelGridListEditing::editOnFocusStartsEditing()
{
    zelTestScope scope;
    auto g = makeList();
    g->SetEditOnFocus(true);
    makeCurrent(*g, 2, 0);
    auto *other = new QLineEdit(g.get());
    g->show();
    QVERIFY(QTest::qWaitForWindowExposed(g.get()));
    g->activateWindow();
    if (!QTest::qWaitForWindowActive(g.get()))
        QSKIP("the platform gives no window the focus");
    other->setFocus();
    zelGridEvents ev;
    ev.watch(*g);
    g->Grid()->setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), QStringLiteral("BeforeEdit(2,0)"));
    QVERIFY(g->Grid()->findChild<QLineEdit *>(QStringLiteral("txtEdit")));
}

QTEST_MAIN(tst_zelGridListEditing)
#include "tst_zelGridListEditing.moc"
