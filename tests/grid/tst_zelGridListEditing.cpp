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

void click(zelGridList &g, int row, int column)
{
    const QPoint at = g.Grid()->visualRect(g.Grid()->model()->index(row - 1, column)).center();
    QTest::mouseClick(g.Grid()->viewport(), Qt::LeftButton, {}, at);
}

// Opens the editor of a cell with the key and answers it, or nullptr.
QWidget *openEditor(zelGridList &g, int row, int column, Qt::Key key = Qt::Key_F2)
{
    makeCurrent(g, row, column);
    // An editor closed by Escape lingers, hidden, until deleted later.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::keyClick(g.Grid(), key);
    auto *text = g.Grid()->findChild<QWidget *>(QStringLiteral("txtEdit"));
    return text ? text : g.Grid()->findChild<QWidget *>(QStringLiteral("cboEdit"));
}

// "S(b,2)" stands for the pair "SelectedItem(b,2);SelectionChanged".
QString expand(QString events)
{
    static const QRegularExpression pair(QStringLiteral("S\\((\\w+),(\\d)\\)"));
    return events.replace(pair, QStringLiteral("SelectedItem(\\1,\\2);SelectionChanged"));
}

QString selectedKeys(zelGridList &g)
{
    QString keys;
    for (const auto &r : *g.SelectedItems())
        keys += r->Key();
    return keys;
}

} // namespace

class tst_zelGridListEditing : public QObject
{
    Q_OBJECT

private slots:
    void buttonsReport_data()
    {
        QTest::addColumn<QString>("button"); // "bar..." the same button in the bar below
        QTest::addColumn<int>("current");
        QTest::addColumn<QString>("events");
        const QList<std::tuple<const char *, const char *, int, const char *>> rows{
            {"add below the current row", "cmdAdd", 2, "NewRow(3)"},
            {"add in an empty selection", "cmdAdd", 0, "NewRow(1)"},
            {"bar add", "barAdd", 3, "NewRow(4)"},
            {"edit", "cmdEdit", 2, "Edit(2)"},
            {"bar properties edit", "barProperties", 1, "Edit(1)"},
            {"delete", "cmdDelete", 2, "Delete(2,b)"},
            {"bar remove deletes", "barRemove", 3, "Delete(3,c)"},
            {"delete on the header row", "cmdDelete", 0, ""},
            {"bar help is not for the list", "barHelp", 2, ""},
            {"option 2", "barOption2", 2, "OptionClicked(2)"},
            {"option 0", "barOption0", 2, "OptionClicked(0)"}};
        for (const auto &[name, button, current, events] : rows)
            QTest::newRow(name) << button << current << events;
    }

    // The control never adds, edits or deletes a row itself.
    void buttonsReport()
    {
        QFETCH(QString, button);
        QFETCH(int, current);
        QFETCH(QString, events);
        zelTestScope scope;
        auto g = makeList();
        g->SetButtonsOnSide(button.startsWith(QLatin1String("cmd")));
        g->SetButtonsVisible(15 | 16 | 64);
        g->SetButtonsEnabled(15 | 16 | 64);
        zelGridEvents ev;
        makeCurrent(*g, current);
        ev.watch(*g);
        QPushButton *b = ::button(*g, qPrintable(button));
        QVERIFY(b);
        b->click();
        QCoreApplication::processEvents();
        QCOMPARE(ev.joined(), events);
        QCOMPARE(::order(*g), QStringLiteral("ABC"));
        QCOMPARE(g->CurrentRow(), current);
    }

    void userActionsRaiseTheirSelectionEvents_data()
    {
        // "c<row><column>" click, "m..." Ctrl-click, "d..." double-click,
        // "k<key>", "b<button>", "s<key>" SelectItem, "r<row>" the host
        // redirects a move, "M" MultiSelect on.
        QTest::addColumn<QString>("actions");
        QTest::addColumn<QString>("events");
        QTest::addColumn<QString>("after"); // the rows' order @ current row : selected keys
        auto row = [](const char *name, const char *actions, const char *events,
                      const char *after) {
            QTest::newRow(name) << QString(actions) << QString(events) << QString(after);
        };
        // Row A (column 0) is current and selected to begin with. A change of
        // the current cell and a change of the selection raise a pair each,
        // S(key,row): SelectedItem(key,row);SelectionChanged.
        row("click another row", "c21", "S(b,2);S(b,2)", "ABC@2:b");
        row("click the current cell", "c10", "", "ABC@1:a");
        row("click another column of the current row", "c11", "S(a,1)", "ABC@1:a");
        row("down key", "kDown", "S(b,2);S(b,2)", "ABC@2:b");
        row("right key", "kRight", "S(a,1)", "ABC@1:a");
        row("up key on the first row", "kUp", "", "ABC@1:a");
        row("down button", "bcmdDown", "S(a,2);S(a,2);RowMoved(1,2)", "BAC@2:a");
        row("click, then up button", "c30,bcmdUp", "S(c,3);S(c,3);S(c,2);S(c,2);RowMoved(3,2)",
            "ACB@2:c");
        row("host redirects the moved row", "c20,r3,bcmdUp",
            "S(b,2);S(b,2);S(b,1);S(b,1);RowMoved(2,1);S(c,3);S(c,3)", "BAC@3:c");
        row("host selecting raises nothing", "sb", "", "ABC@2:b");
        row("double-click a cell not editable", "c31,d31", "S(c,3);S(c,3);DblClick", "ABC@3:c");
        row("double-click an editable cell", "c30,d30", "S(c,3);S(c,3);BeforeEdit(3,0);DblClick",
            "ABC@3:c");
        row("Ctrl-click adds to a multiple selection", "M,c11,m31", "S(a,1);S(c,3);S(c,3)",
            "ABC@3:ac");
        row("Ctrl-click again takes a row out", "M,c11,m31,m21,m31",
            "S(a,1);S(c,3);S(c,3);S(b,2);S(b,2);S(c,3);S(c,3)", "ABC@3:ab");
    }

    void userActionsRaiseTheirSelectionEvents()
    {
        QFETCH(QString, actions);
        QFETCH(QString, events);
        QFETCH(QString, after);
        zelTestScope scope;
        zelGridEvents ev;
        QWidget form;
        zelGridList *g = makeList().release();
        g->SetButtonsOnSide(true);
        QVERIFY(showOnForm(form, g));
        g->Grid()->setFocus();
        QCoreApplication::processEvents();
        ev.watch(*g);
        for (const QString &a : actions.split(QLatin1Char(','))) {
            const QChar kind = a.at(0);
            const QModelIndex cell =
                g->Grid()->model()->index(a.mid(1, 1).toInt() - 1, a.mid(2, 1).toInt());
            const QPoint at = g->Grid()->visualRect(cell).center();
            if (kind == 'c' || kind == 'm')
                QTest::mouseClick(g->Grid()->viewport(), Qt::LeftButton,
                                  kind == 'm' ? Qt::ControlModifier : Qt::NoModifier, at);
            else if (kind == 'd')
                QTest::mouseDClick(g->Grid()->viewport(), Qt::LeftButton, {}, at);
            else if (kind == 'k')
                QTest::keyClick(g->Grid(), a == QLatin1String("kDown") ? Qt::Key_Down
                                           : a == QLatin1String("kUp") ? Qt::Key_Up
                                                                       : Qt::Key_Right);
            else if (kind == 'b')
                QTest::mouseClick(button(*g, qPrintable(a.mid(1))), Qt::LeftButton);
            else if (kind == 'r')
                ev.redirectMove = a.mid(1).toInt();
            else if (kind == 'M')
                g->SetMultiSelect(true);
            else
                QVERIFY(g->SelectItem(a.mid(1)));
            QCoreApplication::processEvents();
        }
        QCOMPARE(ev.joined(), expand(events));
        QCOMPARE(order(*g) + '@' + QString::number(g->CurrentRow()) + ':' + selectedKeys(*g),
                 after);
        // Each row object knows whether it is selected.
        for (const auto &r : *g->Items())
            QCOMPARE(r->Selected(), after.section(':', 1).contains(r->Key()));
        QCOMPARE(outOfStep(*g), QString());
    }

    void currentAndSelectionFollowTheirRows_data()
    {
        QTest::addColumn<QString>("selected"); // keys; the last one is current
        QTest::addColumn<int>("remove");       // row removed, or 0
        QTest::addColumn<int>("insert");       // row inserted at, or 0
        QTest::addColumn<QString>("selectedAfter");
        QTest::addColumn<QString>("events");

        auto row = [](const char *name, const char *selected, int remove, int insert,
                      const char *after, const char *events) {
            QTest::newRow(name) << QString(selected) << remove << insert << QString(after)
                                << QString(events);
        };
        row("remove above the current", "d", 2, 0, "d", "");
        row("remove the current", "c", 3, 0, "d", "S(d,3)");
        row("remove the current last row", "e", 5, 0, "d", "S(d,4)");
        row("insert at the current", "c", 0, 3, "c", "");
        row("several, remove one of them", "bce", 3, 0, "be", "");
        row("several, insert among them", "abe", 0, 2, "abe", "");
    }

    void currentAndSelectionFollowTheirRows()
    {
        QFETCH(QString, selected);
        QFETCH(int, remove);
        QFETCH(int, insert);
        QFETCH(QString, selectedAfter);
        QFETCH(QString, events);
        zelTestScope scope;
        auto g = makeList(5);
        if (selected.size() > 1) {
            g->SetMultiSelect(true);
            g->Grid()->selectionModel()->clear();
        }
        for (const QChar k : selected)
            g->SelectItem(QString(k));
        QCoreApplication::processEvents();
        const auto handedOut = g->SelectedItems();
        zelGridEvents ev;
        ev.watch(*g);
        if (remove)
            QVERIFY(g->RemoveItem(remove));
        else
            QVERIFY(g->AddItem(QStringLiteral("X\t0"), QStringLiteral("x"), QVariant(), insert));
        QCoreApplication::processEvents();
        QCOMPARE(selectedKeys(*g), selectedAfter);
        QCOMPARE(handedOut->Count(), selected.size()); // the host's, left be
        QCOMPARE(g->RowData(g->CurrentRow())->Key(), selectedAfter.right(1));
        QCOMPARE(ev.joined(), expand(events));
        // Each row object knows whether it is selected.
        for (const auto &r : *g->Items())
            QCOMPARE(r->Selected(), selectedAfter.contains(r->Key()));
        QCOMPARE(outOfStep(*g), QString());
    }

    void inPlaceEdit_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("key"); // opens the editor
        QTest::addColumn<bool>("veto");
        QTest::addColumn<QString>("replace"); // "REMOVE": the host removes the row on EditCell
        QTest::addColumn<int>("closeKey");
        QTest::addColumn<QString>("events");
        QTest::addColumn<QString>("cell"); // of row 2 afterwards
        const QString typed =
            QStringLiteral("BeforeEdit(2,0);EditCell(2,0,new);EditCellByRef(2,0,new)");
        const QString before = QStringLiteral("BeforeEdit(2,0)");
        const int f2 = Qt::Key_F2, ret = Qt::Key_Return, esc = Qt::Key_Escape;
        QTest::newRow("typed text stays") << 0 << f2 << false << "" << ret << typed << "new";
        QTest::newRow("enter starts and ends")
            << 0 << ret << false << "" << int(Qt::Key_Enter) << typed << "new";
        QTest::newRow("host vetoes") << 0 << f2 << true << "" << ret << before << "B";
        QTest::newRow("host changes the text")
            << 0 << f2 << false << "HOST" << ret << typed << "HOST";
        QTest::newRow("host removes the row")
            << 0 << f2 << false << "REMOVE" << ret << typed << "C";
        QTest::newRow("escape keeps the text") << 0 << f2 << false << "" << esc << before << "B";
        QTest::newRow("column not editable") << 1 << f2 << false << "" << ret << ""
                                             << "2";
    }

    void inPlaceEdit()
    {
        QFETCH(int, column);
        QFETCH(int, key);
        QFETCH(bool, veto);
        QFETCH(QString, replace);
        QFETCH(int, closeKey);
        QFETCH(QString, events);
        QFETCH(QString, cell);
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
        auto *editor = qobject_cast<QLineEdit *>(openEditor(*g, 2, column, Qt::Key(key)));
        QCOMPARE(editor != nullptr, !veto && column == 0);
        if (editor) {
            QCOMPARE(editor->text(), QStringLiteral("B"));
            editor->setText(QStringLiteral("new"));
            QTest::keyClick(editor, Qt::Key(closeKey));
        }
        QCoreApplication::processEvents();
        QCOMPARE(ev.joined(), events);
        QCOMPARE(g->Items()->Item(2)->Cell(column).toString(), cell);
        QCOMPARE(outOfStep(*g), QString());
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
        QTest::addColumn<bool>("form");
        QTest::newRow("the list") << false;
        QTest::newRow("the form it is on") << true;
    }

    // A host form being taken apart must not hear of the edit any more.
    void destroyingWithAnEditorOpen()
    {
        QFETCH(bool, form);
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
        QTest::addColumn<bool>("byClick");
        QTest::addColumn<bool>("veto");
        QTest::addColumn<QString>("events");

        const QString toggled = QStringLiteral("BeforeEdit(2,0);ItemChecked(2,on)");
        QTest::newRow("space") << false << false << toggled;
        QTest::newRow("click") << true << false << toggled;
        QTest::newRow("vetoed click") << true << true << "BeforeEdit(2,0)";
    }

    void checkBoxesToggleByClickAndSpace()
    {
        QFETCH(bool, byClick);
        QFETCH(bool, veto);
        QFETCH(QString, events);
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
            click(*g, 2, 0);
        else
            QTest::keyClick(g->Grid(), Qt::Key_Space);
        QCoreApplication::processEvents();
        QCOMPARE(ev.joined(), events);
        // Row A was added checked; only row B changes.
        QCOMPARE(g->Items()->Item(2)->Checked(), !veto);
        QCOMPARE(g->Items()->Item(1)->Checked(), true);
        const QAbstractItemModel *m = g->Grid()->model();
        QCOMPARE(m->index(1, 0).data(Qt::CheckStateRole).toInt(),
                 int(veto ? Qt::Unchecked : Qt::Checked));
        QCOMPARE(m->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        // The check column never opens a text editor.
        QVERIFY(!g->Grid()->findChild<QLineEdit *>(QStringLiteral("txtEdit")));
    }

    void cellEditors_data()
    {
        QTest::addColumn<QString>("list");   // the column's ComboList; "colour" a colour column
        QTest::addColumn<QString>("chosen"); // "" cancels
        QStringList many;
        for (int i = 0; i < 10000; ++i)
            many << QStringLiteral("Class %1").arg(i);
        QTest::newRow("ten thousand entries") << many.join(QLatin1Char('|')) << "Class 9999";
        // A list starting with "|" also takes free text.
        QTest::newRow("free text") << "|Class 0|Class 1"
                                   << "Lakes";
        QTest::newRow("colour chosen") << "colour"
                                       << "16711680";
        QTest::newRow("colour dialog cancelled") << "colour"
                                                 << "";
    }

    void cellEditors()
    {
        QFETCH(QString, list);
        QFETCH(QString, chosen);
        zelTestScope scope;
        auto g = shownList();
        const bool colour = list == QLatin1String("colour");
        const auto column = g->Columns()->Item(2);
        column->SetAllowEdit(true);
        if (colour)
            column->SetDataType(36);
        else
            column->SetComboList(list);
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

    void editOnFocusStartsEditing()
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
};

QTEST_MAIN(tst_zelGridListEditing)
#include "tst_zelGridListEditing.moc"
