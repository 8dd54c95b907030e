// What the user does in a grid list and the events the host gets for it:
// the buttons, moving rows, selecting, and editing cells in place.

#include "grid/zelGridList.h"
#include "zelFakePlatform.h"
#include "zelGridTestSupport.h"
#include "zelTestData.h"

#include <QComboBox>
#include <QKeySequence>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

void makeCurrent(zelGridList &g, int row, int column = 0)
{
    if (row < 1)
        g.Grid()->selectionModel()->clear();
    else
        g.Grid()->setCurrentIndex(g.Grid()->model()->index(row - 1, column));
    QCoreApplication::processEvents();
}

// A list of rows A, B, C shown with the focus in its grid.
std::unique_ptr<zelGridList> shownList(int rows = 3)
{
    auto g = makeList(rows);
    g->show();
    if (!QTest::qWaitForWindowExposed(g.get()))
        qWarning("the list was not shown");
    g->Grid()->setFocus();
    QCoreApplication::processEvents();
    return g;
}

// Opens the editor of a cell with the key, or with the focus coming in when
// EditOnFocus is on (key 0), and answers it, or nullptr.
QWidget *openEditor(zelGridList &g, int row, int column, int key = Qt::Key_F2)
{
    makeCurrent(g, row, column);
    // An editor closed by Escape lingers, hidden, until deleted later.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (key) {
        QTest::keyClick(g.Grid(), Qt::Key(key));
    } else if (QTest::qWaitForWindowActive(&g)) {
        g.SetEditOnFocus(true);
        g.Grid()->clearFocus();
        g.Grid()->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        g.SetEditOnFocus(false);
    }
    auto *text = g.Grid()->findChild<QWidget *>(QStringLiteral("txtEdit"));
    return text ? text : g.Grid()->findChild<QWidget *>(QStringLiteral("cboEdit"));
}

// "S(b,2)" stands for the pair "SelectedItem(b,2);SelectionChanged".
QString expand(QString events)
{
    static const QRegularExpression pair(QStringLiteral("S\\((\\w+),(\\d)\\)"));
    return events.replace(pair, QStringLiteral("SelectedItem(\\1,\\2);SelectionChanged"));
}

// The keys of SelectedItems, and what differs when the row objects say else.
QString selectedKeys(zelGridList &g)
{
    QString keys, flagged;
    for (const auto &r : *g.SelectedItems())
        keys += r->Key();
    for (const auto &r : *g.Items())
        flagged += r->Selected() ? r->Key() : QString();
    return keys + (flagged == keys ? QString() : QStringLiteral(" rows say ") + flagged);
}

} // namespace

class tst_zelGridListEditing : public QObject
{
    Q_OBJECT

private slots:
    void userActionsRaiseTheirSelectionEvents_data()
    {
        // "<row>:" the current row before it all (0 none), "c<row><column>"
        // click, "m..." Ctrl-click, "d..." double-click, "k<key>", "b<button>",
        // "B" the buttons in the bar below, "s<key>" SelectItem, "r<row>" the
        // host redirects a move, "M" MultiSelect on.
        // after: the rows' order @ current row : selected keys
        zelColumns<QString, QString, QString>({"actions", "events", "after"});
        // Row A (column 0) is current and selected to begin with. A change of
        // the current cell and a change of the selection raise a pair each,
        // S(key,row): SelectedItem(key,row);SelectionChanged.
        zelRow("click another row", "c21", "S(b,2);S(b,2)", "ABC@2:b");
        zelRow("click the current cell", "c10", "", "ABC@1:a");
        zelRow("click another column of the current row", "c11", "S(a,1)", "ABC@1:a");
        zelRow("down key", "kDown", "S(b,2);S(b,2)", "ABC@2:b");
        zelRow("right key", "kRight", "S(a,1)", "ABC@1:a");
        zelRow("up key on the first row", "kUp", "", "ABC@1:a");
        zelRow("down button", "bcmdDown", "S(a,2);S(a,2);RowMoved(1,2)", "BAC@2:a");
        zelRow("click, then up button", "c30,bcmdUp", "S(c,3);S(c,3);S(c,2);S(c,2);RowMoved(3,2)",
               "ACB@2:c");
        zelRow("host redirects the moved row", "c20,r3,bcmdUp",
               "S(b,2);S(b,2);S(b,1);S(b,1);RowMoved(2,1);S(c,3);S(c,3)", "BAC@3:c");
        zelRow("host selecting raises nothing", "sb", "", "ABC@2:b");
        zelRow("double-click a cell not editable", "c31,d31", "S(c,3);S(c,3);DblClick", "ABC@3:c");
        zelRow("double-click an editable cell", "c30,d30", "S(c,3);S(c,3);BeforeEdit(3,0);DblClick",
               "ABC@3:c");
        zelRow("Ctrl-click adds to a multiple selection", "M,c11,m31", "S(a,1);S(c,3);S(c,3)",
               "ABC@3:ac");
        zelRow("Ctrl-click again takes a row out", "M,c11,m31,m21,m31",
               "S(a,1);S(c,3);S(c,3);S(b,2);S(b,2);S(c,3);S(c,3)", "ABC@3:ab");
        // The buttons only report: the control never adds, edits or deletes a row itself.
        zelRow("add below the current row", "2:bcmdAdd", "NewRow(3)", "ABC@2:b");
        zelRow("add in an empty selection", "0:bcmdAdd", "NewRow(1)", "ABC@0:");
        zelRow("bar add", "3:B,bbarAdd", "NewRow(4)", "ABC@3:c");
        zelRow("edit", "2:bcmdEdit", "Edit(2)", "ABC@2:b");
        zelRow("bar properties edit", "1:B,bbarProperties", "Edit(1)", "ABC@1:a");
        zelRow("delete", "2:bcmdDelete", "Delete(2,b)", "ABC@2:b");
        zelRow("bar remove deletes", "3:B,bbarRemove", "Delete(3,c)", "ABC@3:c");
        zelRow("delete on the header row", "0:bcmdDelete", "", "ABC@0:");
        zelRow("bar help is not for the list", "2:B,bbarHelp", "", "ABC@2:b");
        zelRow("option 2", "2:B,bbarOption2", "OptionClicked(2)", "ABC@2:b");
        zelRow("option 0", "2:B,bbarOption0", "OptionClicked(0)", "ABC@2:b");
    }

    void userActionsRaiseTheirSelectionEvents()
    {
        const auto [actions, events] = zelFetch<QString, QString>({"actions", "events"});
        zelTestScope scope;
        zelGridEvents ev;
        QWidget form;
        zelGridList *g = makeList().release();
        g->SetButtonsOnSide(true);
        g->SetButtonsVisible(15 | 16 | 64);
        g->SetButtonsEnabled(15 | 16 | 64);
        QVERIFY(showOnForm(form, g));
        g->Grid()->setFocus();
        const bool current = actions.at(1) == QLatin1Char(':');
        makeCurrent(*g, current ? actions.at(0).digitValue() : 1);
        ev.watch(*g);
        for (const QString &a : actions.mid(current ? 2 : 0).split(QLatin1Char(','))) {
            const QChar kind = a.at(0);
            const QPoint at = g->Grid()
                                  ->visualRect(g->Grid()->model()->index(a.mid(1, 1).toInt() - 1,
                                                                         a.mid(2, 1).toInt()))
                                  .center();
            if (kind == 'c' || kind == 'm')
                QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton,
                                  kind == 'm' ? Qt::ControlModifier : Qt::NoModifier, at);
            else if (kind == 'd')
                QTest::mouseDClick(g->Grid()->viewport(), Qt::LeftButton, {}, at);
            else if (kind == 'k')
                QTest::keyClick(g->Grid(), QKeySequence::fromString(a.mid(1))[0].key());
            else if (kind == 'b')
                QTest::mouseClick(button(*g, qPrintable(a.mid(1))), Qt::LeftButton);
            else if (kind == 'r')
                ev.redirectMove = a.mid(1).toInt();
            else if (kind == 'B')
                g->SetButtonsOnSide(false);
            else if (kind == 'M')
                g->SetMultiSelect(true);
            else
                QVERIFY(g->SelectItem(a.mid(1)));
            QCoreApplication::processEvents();
        }
        QCOMPARE(ev.joined(), expand(events));
        QTEST(order(*g) + '@' + QString::number(g->CurrentRow()) + ':' + selectedKeys(*g) +
                  outOfStep(*g),
              "after");
    }

    void currentAndSelectionFollowTheirRows_data()
    {
        // selected: keys, the last one current; row: removed, or inserted at -row
        zelColumns<QString, int, QString, QString>({"selected", "row", "selectedAfter", "events"});
        zelRow("remove above the current", "d", 2, "d", "");
        zelRow("remove the current", "c", 3, "d", "S(d,3)");
        zelRow("remove the current last row", "e", 5, "d", "S(d,4)");
        zelRow("insert at the current", "c", -3, "c", "");
        zelRow("several, remove one of them", "bce", 3, "be", "");
        zelRow("several, insert among them", "abe", -2, "abe", "");
    }

    void currentAndSelectionFollowTheirRows()
    {
        const auto [selected, row, selectedAfter, events] =
            zelFetch<QString, int, QString, QString>(
                {"selected", "row", "selectedAfter", "events"});
        zelTestScope scope;
        auto g = makeList(5);
        g->SetMultiSelect(selected.size() > 1);
        g->Grid()->selectionModel()->clear();
        for (const QChar k : selected)
            g->SelectItem(QString(k));
        QCoreApplication::processEvents();
        const auto handedOut = g->SelectedItems();
        zelGridEvents ev;
        ev.watch(*g);
        if (row > 0)
            QVERIFY(g->RemoveItem(row));
        else
            QVERIFY(g->AddItem(QStringLiteral("X\t0"), QStringLiteral("x"), QVariant(), -row));
        QCoreApplication::processEvents();
        QCOMPARE(selectedKeys(*g) + outOfStep(*g), selectedAfter);
        QCOMPARE(handedOut->Count(), selected.size()); // the host's, left be
        QCOMPARE(g->RowData(g->CurrentRow())->Key(), selectedAfter.right(1));
        QCOMPARE(ev.joined(), expand(events));
    }

    void inPlaceEdit_data()
    {
        // key opens the editor, 0: the focus comes in with EditOnFocus on;
        // replace "REMOVE": the host removes the row on EditCell; cell: row 2's
        zelColumns<int, int, bool, QString, int, QString, QString>(
            {"column", "key", "veto", "replace", "closeKey", "events", "cell"});
        const QString typed =
            QStringLiteral("BeforeEdit(2,0);EditCell(2,0,new);EditCellByRef(2,0,new)");
        const QString before = QStringLiteral("BeforeEdit(2,0)");
        const int f2 = Qt::Key_F2, ret = Qt::Key_Return, esc = Qt::Key_Escape;
        zelRow("typed text stays", 0, f2, false, "", ret, typed, "new");
        zelRow("enter starts and ends", 0, ret, false, "", int(Qt::Key_Enter), typed, "new");
        zelRow("focus coming in starts", 0, 0, false, "", ret, typed, "new");
        zelRow("host vetoes", 0, f2, true, "", ret, before, "B");
        zelRow("host changes the text", 0, f2, false, "HOST", ret, typed, "HOST");
        zelRow("host removes the row", 0, f2, false, "REMOVE", ret, typed, "C");
        zelRow("escape keeps the text", 0, f2, false, "", esc, before, "B");
        zelRow("column not editable", 1, f2, false, "", ret, "", "2");
    }

    void inPlaceEdit()
    {
        const auto [column, key, veto, replace, closeKey] = zelFetch<int, int, bool, QString, int>(
            {"column", "key", "veto", "replace", "closeKey"});
        zelTestScope scope;
        auto g = shownList();
        zelGridEvents ev;
        ev.vetoEdit = veto;
        QMetaObject::Connection remover;
        if (replace == QLatin1String("REMOVE"))
            remover = connect(g.get(), &zelGridList::EditCell, g.get(),
                              [&](qint32 lRow, qint32, const QString &) { g->RemoveItem(lRow); });
        else
            ev.replaceText = replace;
        makeCurrent(*g, 2, column);
        ev.watch(*g);
        auto *editor = qobject_cast<QLineEdit *>(openEditor(*g, 2, column, key));
        QCOMPARE(editor != nullptr, !veto && column == 0);
        if (editor) {
            QCOMPARE(editor->text(), QStringLiteral("B"));
            editor->setText(QStringLiteral("new"));
            QTest::keyClick(editor, Qt::Key(closeKey));
        }
        QCoreApplication::processEvents();
        QTEST(ev.joined(), "events");
        QTEST(g->Items()->Item(2)->Cell(column).toString() + outOfStep(*g), "cell");
        // The grid goes on editing as before.
        ev.vetoEdit = false;
        ev.replaceText.clear();
        disconnect(remover);
        auto *next = qobject_cast<QLineEdit *>(openEditor(*g, 1, 0));
        QVERIFY(next);
        next->setText(QStringLiteral("Alpha"));
        QTest::keyClick(next, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(g->Items()->Item(1)->Cell(0).toString(), QStringLiteral("Alpha"));
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void destroyingWithAnEditorOpen_data()
    {
        zelColumns<bool>({"form"});
        zelRow("the list", false);
        zelRow("the form it is on", true);
    }

    // A host form being taken apart must not hear of the edit any more.
    void destroyingWithAnEditorOpen()
    {
        const auto [form] = zelFetch<bool>({"form"});
        zelTestScope scope;
        int heard = 0;
        auto host = std::make_unique<QWidget>();
        auto g = makeList();
        connect(g.get(), &zelGridList::EditCell, [&] { ++heard; });
        if (form)
            QVERIFY(showOnForm(*host, g.release()));
        QPointer<zelGridList> list = form ? host->findChild<zelGridList *>() : g.get();
        list->show();
        list->Grid()->setFocus();
        QPointer<QWidget> editor = openEditor(*list, 2, 0);
        QVERIFY(editor);
        qobject_cast<QLineEdit *>(editor.data())->setText(QStringLiteral("typed"));
        g.reset();
        host.reset();
        QCoreApplication::processEvents();
        QVERIFY(!editor);
        QVERIFY(!list);
        QCOMPARE(heard, 0);
    }

    void checkBoxesToggleByClickAndSpace_data()
    {
        zelColumns<bool, bool, QString>({"byClick", "veto", "events"});
        const QString toggled = QStringLiteral("BeforeEdit(2,0);ItemChecked(2,on)");
        zelRow("space", false, false, toggled);
        zelRow("click", true, false, toggled);
        zelRow("vetoed click", true, true, "BeforeEdit(2,0)");
    }

    void checkBoxesToggleByClickAndSpace()
    {
        const auto [byClick, veto] = zelFetch<bool, bool>({"byClick", "veto"});
        zelTestScope scope;
        auto g = shownList(0);
        g->SetCheckBoxes(true);
        g->AddItemEx(QStringLiteral("\tA\t1"), QStringLiteral("a"), {}, -1, true);
        g->AddItemEx(QStringLiteral("\tB\t2"), QStringLiteral("b"));
        QCoreApplication::processEvents();
        makeCurrent(*g, 2, 0);
        zelGridEvents ev;
        ev.vetoEdit = veto;
        ev.watch(*g);
        if (byClick)
            QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton, {},
                              g->Grid()->visualRect(g->Grid()->model()->index(1, 0)).center());
        else
            QTest::keyClick(g->Grid(), Qt::Key_Space);
        QCoreApplication::processEvents();
        QTEST(ev.joined(), "events");
        // Row A was added checked; only row B changes, in Items and on the screen.
        for (const int r : {1, 2}) {
            const bool on = r == 1 || !veto;
            QCOMPARE(g->Items()->Item(r)->Checked(), on);
            QCOMPARE(g->Grid()->model()->index(r - 1, 0).data(Qt::CheckStateRole).toInt(),
                     int(on ? Qt::Checked : Qt::Unchecked));
        }
        // The check column never opens a text editor.
        QVERIFY(!g->Grid()->findChild<QLineEdit *>(QStringLiteral("txtEdit")));
    }

    void cellEditors_data()
    {
        // list: the column's ComboList, "colour" a colour column; chosen: "" cancels
        zelColumns<QString, QString>({"list", "chosen"});
        QStringList many;
        for (int i = 0; i < 10000; ++i)
            many << QStringLiteral("Class %1").arg(i);
        zelRow("ten thousand entries", many.join(QLatin1Char('|')), "Class 9999");
        // A list starting with "|" also takes free text.
        zelRow("free text", "|Class 0|Class 1", "Lakes");
        zelRow("colour chosen", "colour", "16711680");
        zelRow("colour dialog cancelled", "colour", "");
    }

    void cellEditors()
    {
        const auto [list, chosen] = zelFetch<QString, QString>({"list", "chosen"});
        zelTestScope scope;
        auto g = shownList();
        const bool colour = list == QLatin1String("colour");
        const auto column = g->Columns()->Item(2);
        column->SetAllowEdit(true);
        colour ? column->SetDataType(36) : column->SetComboList(list);
        g->RefreshColumns();
        scope.fake().colorDialogAccepts = !chosen.isEmpty();
        scope.fake().colorDialogAnswer = 0xFF0000;
        makeCurrent(*g, 3, 1);
        zelGridEvents ev;
        ev.watch(*g);
        auto *combo = qobject_cast<QComboBox *>(openEditor(*g, 3, 1));
        QCOMPARE(combo != nullptr, !colour);
        if (combo) {
            const bool free = list.startsWith(QLatin1Char('|'));
            QCOMPARE(combo->count(), list.count(QLatin1Char('|')) + (free ? 0 : 1));
            QCOMPARE(combo->isEditable(), free);
            if (free) {
                QCOMPARE(combo->currentText(), QStringLiteral("3")); // the cell's own text
                combo->setEditText(chosen);
            } else {
                combo->setCurrentIndex(combo->findText(chosen));
            }
            QTest::keyClick(combo, Qt::Key_Return);
        }
        QCoreApplication::processEvents();
        const QString kept = chosen.isEmpty() ? QStringLiteral("3") : chosen;
        QCOMPARE(g->Items()->Item(3)->Data(), QStringLiteral("C\t") + kept);
        QCOMPARE(ev.joined(), chosen.isEmpty() ? QStringLiteral("BeforeEdit(3,1)")
                                               : QStringLiteral("BeforeEdit(3,1);EditCell(3,1,%1);"
                                                                "EditCellByRef(3,1,%1)")
                                                     .arg(chosen));
        if (colour) {
            // The dialog starts from the cell's colour; the cell shows only colour.
            QCOMPARE(scope.fake().colorDialogPresets, QList<quint32>{3});
            const QModelIndex cell = g->Grid()->model()->index(2, 1);
            QCOMPARE(cell.data(Qt::BackgroundRole).value<QBrush>().color(),
                     chosen.isEmpty() ? QColor(3, 0, 0) : QColor(0, 0, 255));
            QCOMPARE(cell.data().toString(), QString());
        }
    }
};

QTEST_MAIN(tst_zelGridListEditing)
#include "tst_zelGridListEditing.moc"
