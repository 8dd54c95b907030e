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

// "cmdAdd" beside the grid, "barAdd" the same button in the bar below it.
QPushButton *button(zelGridList &g, const QString &name)
{
    if (name.startsWith(QLatin1String("bar")))
        return g.findChild<QWidget *>(QStringLiteral("mpbProps"))
            ->findChild<QPushButton *>(QStringLiteral("cmd") + name.mid(3));
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

void click(zelGridList &g, int row, int column, Qt::KeyboardModifiers mods = {})
{
    const QPoint at = g.Grid()->visualRect(g.Grid()->model()->index(row - 1, column)).center();
    QTest::mouseClick(g.Grid()->viewport(), Qt::LeftButton, mods, at);
}

// Opens the editor of a cell with the key and answers it, or nullptr.
QWidget *openEditor(zelGridList &g, int row, int column, Qt::Key key = Qt::Key_F2)
{
    makeCurrent(g, row, column);
    QTest::keyClick(g.Grid(), key);
    auto *text = g.Grid()->findChild<QWidget *>(QStringLiteral("txtEdit"));
    return text ? text : g.Grid()->findChild<QWidget *>(QStringLiteral("cboEdit"));
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
            {"bar help is not for the list", "barHelp", 2, ""}};
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
        zelGridEvents ev;
        makeCurrent(*g, current);
        ev.watch(*g);
        QPushButton *b = ::button(*g, button);
        QVERIFY(b);
        b->click();
        QCoreApplication::processEvents();
        QCOMPARE(ev.joined(), events);
        QCOMPARE(::order(*g), QStringLiteral("ABC"));
        QCOMPARE(g->CurrentRow(), current);
    }

    void hostRedirectsAMovedRow()
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
        QCOMPARE(outOfStep(*g), QString());
        QCOMPARE(g->CurrentRow(), 3);
    }

    void optionButtonsReachTheHost()
    {
        zelTestScope scope;
        auto g = makeList();
        g->SetButtonsVisible(15 | 16 | 64);
        g->SetButtonsEnabled(15 | 16 | 64);
        zelGridEvents ev;
        ev.watch(*g);
        button(*g, QStringLiteral("barOption2"))->click();
        button(*g, QStringLiteral("barOption0"))->click();
        QCOMPARE(ev.joined(), QStringLiteral("OptionClicked(2);OptionClicked(0)"));
    }

    void userActionsRaiseTheirSelectionEvents_data()
    {
        QTest::addColumn<QString>("actions"); // "c<row><column>" click, "k<key>", "b<button>"
        QTest::addColumn<QString>("events");

        auto pair = [](const char *key, int row) {
            return QStringLiteral("SelectedItem(%1,%2);SelectionChanged")
                .arg(QLatin1String(key))
                .arg(row);
        };
        // Row A (column 0) is current and selected to begin with. A change of
        // the current cell and a change of the selection raise a pair each.
        QTest::newRow("click another row") << "c21" << pair("b", 2) + ";" + pair("b", 2);
        QTest::newRow("click the current cell") << "c10"
                                                << "";
        QTest::newRow("click another column of the current row") << "c11" << pair("a", 1);
        QTest::newRow("down key") << "kDown" << pair("b", 2) + ";" + pair("b", 2);
        QTest::newRow("right key") << "kRight" << pair("a", 1);
        QTest::newRow("up key on the first row") << "kUp"
                                                 << "";
        QTest::newRow("down button")
            << "bcmdDown" << pair("a", 2) + ";" + pair("a", 2) + ";RowMoved(1,2)";
        QTest::newRow("click, then up button")
            << "c30,bcmdUp"
            << pair("c", 3) + ";" + pair("c", 3) + ";" + pair("c", 2) + ";" + pair("c", 2) +
                   ";RowMoved(3,2)";
        QTest::newRow("host selecting raises nothing") << "sb"
                                                       << "";
    }

    void userActionsRaiseTheirSelectionEvents()
    {
        QFETCH(QString, actions);
        QFETCH(QString, events);
        zelTestScope scope;
        QWidget form;
        form.resize(900, 500);
        zelGridList *g = makeList().release();
        g->setParent(&form);
        g->setGeometry(0, 0, 800, 400);
        g->SetButtonsOnSide(true);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        g->Grid()->setFocus();
        QCoreApplication::processEvents();
        zelGridEvents ev;
        ev.watch(*g);
        for (const QString &a : actions.split(QLatin1Char(','))) {
            if (a.startsWith(QLatin1Char('c'))) {
                click(*g, a.mid(1, 1).toInt(), a.mid(2, 1).toInt());
            } else if (a.startsWith(QLatin1Char('k'))) {
                QTest::keyClick(g->Grid(), a == QLatin1String("kDown") ? Qt::Key_Down
                                           : a == QLatin1String("kUp") ? Qt::Key_Up
                                                                       : Qt::Key_Right);
            } else if (a.startsWith(QLatin1Char('b'))) {
                QPushButton *b = button(*g, a.mid(1));
                QTest::mouseClick(b, Qt::LeftButton, {}, b->rect().center());
            } else {
                QVERIFY(g->SelectItem(a.mid(1)));
            }
            QCoreApplication::processEvents();
        }
        QCOMPARE(ev.joined(), events);
    }

    void currentAndSelectionFollowTheirRows_data()
    {
        QTest::addColumn<QString>("selected"); // keys; the last one is current
        QTest::addColumn<int>("remove");       // row removed, or 0
        QTest::addColumn<int>("insert");       // row inserted at, or 0
        QTest::addColumn<QString>("selectedAfter");
        QTest::addColumn<QString>("events");

        QTest::newRow("remove above the current") << "d" << 2 << 0 << "d"
                                                  << "";
        QTest::newRow("remove the current") << "c" << 3 << 0 << "d"
                                            << "SelectedItem(d,3);SelectionChanged";
        QTest::newRow("remove the current last row") << "e" << 5 << 0 << "d"
                                                     << "SelectedItem(d,4);SelectionChanged";
        QTest::newRow("insert at the current") << "c" << 0 << 3 << "c"
                                               << "";
        QTest::newRow("several, remove one of them") << "bce" << 3 << 0 << "be"
                                                     << "";
        QTest::newRow("several, insert among them") << "abe" << 0 << 2 << "abe"
                                                    << "";
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
        zelGridEvents ev;
        ev.watch(*g);
        if (remove)
            QVERIFY(g->RemoveItem(remove));
        else
            QVERIFY(g->AddItem(QStringLiteral("X\t0"), QStringLiteral("x"), QVariant(), insert));
        QCoreApplication::processEvents();
        QCOMPARE(selectedKeys(*g), selectedAfter);
        QCOMPARE(g->RowData(g->CurrentRow())->Key(), selectedAfter.right(1));
        QCOMPARE(ev.joined(), events);
        // Each row object knows whether it is selected.
        for (const auto &r : *g->Items())
            QCOMPARE(r->Selected(), selectedAfter.contains(r->Key()));
        QCOMPARE(outOfStep(*g), QString());
    }

    void multiSelectionCollectsTheSelectedRows()
    {
        zelTestScope scope;
        auto g = shownList(4);
        g->SetMultiSelect(true);
        click(*g, 1, 1);
        click(*g, 3, 1, Qt::ControlModifier);
        click(*g, 4, 1, Qt::ControlModifier);
        auto selected = g->SelectedItems();
        QCOMPARE(selectedKeys(*g), QStringLiteral("acd"));
        QCOMPARE(g->Items()->Item(2)->Selected(), false);
        QCOMPARE(g->Items()->Item(3)->Selected(), true);
        // Ctrl-click again takes a row out.
        click(*g, 3, 1, Qt::ControlModifier);
        QCOMPARE(selectedKeys(*g), QStringLiteral("ad"));
        QCOMPARE(g->Items()->Item(3)->Selected(), false);
        // The collection handed out is the host's: rows added later leave it be.
        g->AddItem(QStringLiteral("Z\t0"), QStringLiteral("z"));
        QCOMPARE(selected->Count(), 3);
    }

    void inPlaceEdit_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("key"); // opens the editor
        QTest::addColumn<bool>("veto");
        QTest::addColumn<QString>("replace");
        QTest::addColumn<int>("closeKey");
        QTest::addColumn<QString>("events");
        QTest::addColumn<QString>("cell");

        const QString typed =
            QStringLiteral("BeforeEdit(2,0);EditCell(2,0,new);EditCellByRef(2,0,new)");
        const QString before = QStringLiteral("BeforeEdit(2,0)");
        const int f2 = Qt::Key_F2, ret = Qt::Key_Return;
        QTest::newRow("typed text stays") << 0 << f2 << false << "" << ret << typed << "new";
        QTest::newRow("enter starts and ends")
            << 0 << ret << false << "" << int(Qt::Key_Enter) << typed << "new";
        QTest::newRow("host vetoes") << 0 << f2 << true << "" << ret << before << "B";
        QTest::newRow("host changes the text")
            << 0 << f2 << false << "HOST" << ret << typed << "HOST";
        QTest::newRow("escape keeps the text")
            << 0 << f2 << false << "" << int(Qt::Key_Escape) << before << "B";
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
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void hostRemovesTheEditedRow()
    {
        zelTestScope scope;
        auto g = shownList();
        const auto once =
            connect(g.get(), &zelGridList::EditCell, g.get(),
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

    void destroyingTheListWithAnEditorOpen()
    {
        zelTestScope scope;
        auto g = shownList();
        QPointer<QWidget> editor = openEditor(*g, 2, 0);
        QVERIFY(editor);
        g.reset();
        QCoreApplication::processEvents();
        QVERIFY(!editor);
    }

    void checkBoxesToggleByClickAndSpace_data()
    {
        QTest::addColumn<bool>("byClick");
        QTest::addColumn<bool>("veto");
        QTest::addColumn<QString>("events");

        QTest::newRow("space") << false << false << "BeforeEdit(2,0);ItemChecked(2,on)";
        QTest::newRow("click") << true << false << "BeforeEdit(2,0);ItemChecked(2,on)";
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
        g->AddItem(QStringLiteral("\tA\t1"), QStringLiteral("a"));
        g->AddItem(QStringLiteral("\tB\t2"), QStringLiteral("b"));
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
        QCOMPARE(g->Items()->Item(2)->Checked(), !veto);
        QCOMPARE(g->Items()->Item(1)->Checked(), false);
        QCOMPARE(g->Grid()->model()->index(1, 0).data(Qt::CheckStateRole).toInt(),
                 int(veto ? Qt::Unchecked : Qt::Checked));
        // The check column never opens a text editor.
        QVERIFY(!g->Grid()->findChild<QLineEdit *>(QStringLiteral("txtEdit")));
    }

    void dropDownLists_data()
    {
        QTest::addColumn<int>("entries");
        QTest::addColumn<bool>("editable"); // a list starting with "|" also takes free text
        QTest::addColumn<QString>("chosen");
        QTest::newRow("ten thousand entries") << 10000 << false << "Class 9999";
        QTest::newRow("free text") << 2 << true << "Lakes";
    }

    void dropDownLists()
    {
        QFETCH(int, entries);
        QFETCH(bool, editable);
        QFETCH(QString, chosen);
        zelTestScope scope;
        auto g = shownList();
        QStringList list;
        for (int i = 0; i < entries; ++i)
            list << QStringLiteral("Class %1").arg(i);
        g->Columns()->Item(2)->SetComboList((editable ? "|" : "") + list.join(QLatin1Char('|')));
        g->Columns()->Item(2)->SetAllowEdit(true);
        g->RefreshColumns();
        zelGridEvents ev;
        ev.watch(*g);
        auto *combo = qobject_cast<QComboBox *>(openEditor(*g, 3, 1));
        QVERIFY(combo);
        QCOMPARE(combo->count(), entries);
        QCOMPARE(combo->isEditable(), editable);
        if (editable) {
            QCOMPARE(combo->currentText(), QStringLiteral("3")); // the cell's own text
            combo->setEditText(chosen);
        } else {
            combo->setCurrentIndex(entries - 1);
        }
        QTest::keyClick(combo, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(g->Items()->Item(3)->Data(), QStringLiteral("C\t") + chosen);
        QCOMPARE(ev.events.last(), QStringLiteral("EditCellByRef(3,1,%1)").arg(chosen));
    }

    void colourCellTakesAColourFromTheDialog_data()
    {
        QTest::addColumn<bool>("accept");
        QTest::addColumn<QString>("events");
        QTest::addColumn<QColor>("colour");

        QTest::newRow("chosen")
            << true << "BeforeEdit(1,1);EditCell(1,1,16711680);EditCellByRef(1,1,16711680)"
            << QColor(0, 0, 255);
        QTest::newRow("cancelled") << false << "BeforeEdit(1,1)" << QColor(255, 0, 0);
    }

    void colourCellTakesAColourFromTheDialog()
    {
        QFETCH(bool, accept);
        QFETCH(QString, events);
        QFETCH(QColor, colour);
        zelTestScope scope;
        auto g = shownList(0);
        g->Columns()->Item(2)->SetDataType(36);
        g->Columns()->Item(2)->SetAllowEdit(true);
        g->RefreshColumns();
        g->AddItem(QStringLiteral("Roads\t255"), QStringLiteral("r"));
        QCoreApplication::processEvents();
        scope.fake().colorDialogAccepts = accept;
        scope.fake().colorDialogAnswer = 0xFF0000;
        zelGridEvents ev;
        makeCurrent(*g, 1, 1);
        ev.watch(*g);
        QTest::keyClick(g->Grid(), Qt::Key_F2);
        QCOMPARE(ev.joined(), events);
        QCOMPARE(scope.fake().colorDialogPresets, QList<quint32>{255});
        const QModelIndex cell = g->Grid()->model()->index(0, 1);
        QCOMPARE(cell.data(Qt::BackgroundRole).value<QBrush>().color(), colour);
        QCOMPARE(cell.data().toString(), QString());
    }

    void doubleClickIsReported()
    {
        zelTestScope scope;
        auto g = shownList();
        zelGridEvents ev;
        ev.watch(*g);
        // On a cell that is not editable, and on one that is: that edit starts too.
        for (const int column : {1, 0}) {
            const QModelIndex i = g->Grid()->model()->index(2, column);
            click(*g, 3, column);
            QTest::mouseDClick(g->Grid()->viewport(), Qt::LeftButton, {},
                               g->Grid()->visualRect(i).center());
            QCoreApplication::processEvents();
        }
        QCOMPARE(ev.events.count(QStringLiteral("DblClick")), 2);
        QCOMPARE(ev.events.count(QStringLiteral("BeforeEdit(3,1)")), 0);
        QCOMPARE(ev.events.count(QStringLiteral("BeforeEdit(3,0)")), 1);
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
