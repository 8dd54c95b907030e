// The combo and the combo tree as a host and a user meet them: the columns
// the drop-down shows, the rows AddItem takes or refuses, the Changed events
// of SelectItem, a click and the keyboard, Clear, what a form stores, and
// Enter on a real form.

#include "lists/zelCombo.h"
#include "lists/zelComboTree.h"
#include "platform/zelLateBinding.h"
#include "platform/zelPropertyBag.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

using Aligns = QList<int>;
Q_DECLARE_METATYPE(QList<bool>)

namespace {

QList<bool> events(const QSignalSpy &spy)
{
    QList<bool> list;
    for (const QVariantList &args : spy)
        list << args.at(0).toBool();
    return list;
}

// A form with the control and a field after it, shown and active.
struct Form
{
    QWidget form;
    QLineEdit *next;
    explicit Form(QWidget *control) : next(new QLineEdit)
    {
        auto *layout = new QVBoxLayout(&form);
        layout->addWidget(control);
        layout->addWidget(next);
        form.resize(400, 120);
        form.show();
        QApplication::setActiveWindow(&form);
        (void)QTest::qWaitForWindowExposed(&form);
    }
};

} // namespace

class tst_Combo : public QObject
{
    Q_OBJECT

private slots:
    void columnsAsShown_data()
    {
        zelColumns<QString, double, QStringList, Aligns, QList<int>, bool>(
            {"colText", "twips", "captions", "aligns", "widths", "header"});
        const int L = Qt::AlignLeft, R = Qt::AlignRight, C = Qt::AlignHCenter;
        zelRow("empty", QString(), 15.0, QStringList{"Default"}, Aligns{C}, QList<int>{0}, false);
        zelRow("left and right", QStringLiteral("<Name~120\t>Size~60"), 15.0,
               QStringList{"Name", "Size"}, Aligns{L, R}, QList<int>{120, 60}, true);
        zelRow("300 px, 301 twips at 96 dpi", QStringLiteral("|A~300\t_B~301"), 15.0,
               QStringList{"A", "B"}, Aligns{C, 0}, QList<int>{300, 20}, true);
        zelRow("300 px, 301 twips at 144 dpi", QStringLiteral("|A~300\t_B~301"), 10.0,
               QStringList{"A", "B"}, Aligns{C, 0}, QList<int>{300, 30}, true);
    }
    void columnsAsShown()
    {
        const auto [colText, twips, captions, aligns, widths, header] =
            zelFetch<QString, double, QStringList, Aligns, QList<int>, bool>(
                {"colText", "twips", "captions", "aligns", "widths", "header"});
        zelTestScope scope;
        scope.fake().twipsPerPixel = twips;
        zelCombo combo;
        combo.SetColumns(colText);
        QTreeView *view = combo.DropDownView();
        QCOMPARE(view->model()->columnCount(), captions.size());
        QCOMPARE(!view->isHeaderHidden(), header);
        for (int i = 0; i < captions.size(); ++i) {
            const auto model = view->model();
            QCOMPARE(model->headerData(i, Qt::Horizontal).toString(), captions[i]);
            const int shown = model->headerData(i, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
            QCOMPARE(shown & Qt::AlignHorizontal_Mask, aligns[i]);
            if (widths[i])
                QCOMPARE(view->header()->sectionSize(i), widths[i]);
            QVERIFY(!view->isColumnHidden(i));
        }
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void listWidth_data()
    {
        zelColumns<double, int, int, bool>({"twips", "combo", "min", "fit"});
        zelRow("wide enough at 96 dpi", 15.0, 4500, 0, true);
        zelRow("a twip short at 96 dpi", 15.0, 4499, 304, false);
        zelRow("wide enough at 144 dpi", 10.0, 3000, 0, true);
        zelRow("a twip short at 144 dpi", 10.0, 2999, 304, false);
    }
    void listWidth()
    {
        const auto [twips, combo, min, fit] =
            zelFetch<double, int, int, bool>({"twips", "combo", "min", "fit"});
        QCOMPARE(zel::ListWidth({100, 200}, combo, twips), (zel::zelListWidth{min, fit}));
    }

    void dropDownHeight_data()
    {
        zelColumns<int, QString, int, int>({"rows", "colText", "width", "height"});
        zelRow("20 rows and a header", 20, QStringLiteral("A~50\tB~50"), 300, 194);
        zelRow("and a least width", 20, QStringLiteral("A~200\tB~200"), 100, 214);
        zelRow("3 rows, no header", 3, QStringLiteral("A~50"), 300, 52);
    }
    void dropDownHeight()
    {
        const auto [rows, colText, width, height] =
            zelFetch<int, QString, int, int>({"rows", "colText", "width", "height"});
        zelTestScope scope;
        zelCombo combo;
        combo.resize(width, 21);
        combo.SetColumns(colText);
        for (int i = 0; i < rows; ++i)
            combo.AddItem(QString::number(i), QStringLiteral("row"));
        QCOMPARE(combo.DropDownHeight(), height);
    }

    void addItemLimits_data()
    {
        zelColumns<QString, QString, QString, bool>({"colText", "key", "data", "taken"});
        auto row = [](const char *name, const QString &colText, const QString &key,
                      const QString &data, bool taken) { zelRow(name, colText, key, data, taken); };
        row("more texts than columns", "A\tB", "b", "1\t2\t3", false);
        row("as many texts as columns", "A\tB", "b", "1\t2", true);
        row("fewer texts", "A\tB", "b", "1", true);
        row("empty data", "A", "b", "", true);
        row("key taken", "A", "a", "y", false);
        row("key taken in other case", "A", "A", "y", false);
        row("key of 10^5 characters", "A", QString(100000, QLatin1Char('k')), "y", true);
    }
    void addItemLimits()
    {
        const auto [colText, key, data, taken] =
            zelFetch<QString, QString, QString, bool>({"colText", "key", "data", "taken"});
        zelTestScope scope;
        zelCombo combo;
        combo.SetColumns(colText);
        QSignalSpy changed(&combo, &zelCombo::Changed);
        // By name, as a script adds: the record comes back as an object.
        QObject *first = zel::ObjectOf(zel::CallByName(&combo, "AddItem", {"a", "x"}));
        QCOMPARE(first->property("Key").toString(), QStringLiteral("a"));
        const auto record = combo.AddItem(key, data);
        QCOMPARE(bool(record), taken);
        QCOMPARE(combo.Records()->Count(), taken ? 2 : 1);
        QCOMPARE(combo.Model().RowCount(), combo.Records()->Count());
        // Rows arriving choose nothing by themselves.
        QCOMPARE(changed.count(), 0);
        QVERIFY(!combo.SelectedRecord());
        QCOMPARE(combo.findChild<QComboBox *>("cboValue")->currentText(), QString());
        if (taken) {
            const int row = combo.Model().FindKey(key);
            QCOMPARE(combo.Model().CellText(row, 0), data.section(QLatin1Char('\t'), 0, 0));
            QCOMPARE(combo.Model().CellText(row, 1), data.section(QLatin1Char('\t'), 1, 1));
            QVERIFY(combo.SelectItem(key));
            QCOMPARE(combo.SelectedRecord(), record.get());
        }
    }

    void selectItemEvents_data()
    {
        zelColumns<QString, QString, bool, QList<bool>, QString>(
            {"before", "key", "found", "events", "selected"});
        auto row = [](const char *name, const QString &before, const QString &key, bool found,
                      QList<bool> events, const QString &selected) {
            zelRow(name, before, key, found, events, selected);
        };
        row("known", "", "b", true, {false}, "b");
        row("already selected", "b", "b", true, {}, "b");
        row("unknown, none selected", "", "zz", false, {false}, "");
        row("unknown, one selected", "b", "zz", false, {false}, "");
        row("empty key", "b", "", false, {false}, "");
        row("key in other case", "", "B", false, {false}, "");
    }
    void selectItemEvents()
    {
        const auto [before, key, found, expected, selected] =
            zelFetch<QString, QString, bool, QList<bool>, QString>(
                {"before", "key", "found", "events", "selected"});
        zelTestScope scope;
        zelComboTree tree;
        tree.AddItem(QString(), QStringLiteral("a"), QStringLiteral("A"));
        tree.AddItem(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("B"));
        if (!before.isEmpty())
            tree.SelectItem(before);
        QSignalSpy changed(&tree, &zelComboTree::Changed);
        QCOMPARE(tree.SelectItem(key), found);
        QCOMPARE(events(changed), expected);
        QCOMPARE(tree.SelectedKey(), selected);
    }

    void clickRaisesChangedTrue()
    {
        zelTestScope scope;
        auto *combo = new zelCombo;
        Form f(combo);
        for (const char *k : {"a", "b", "c"})
            combo->AddItem(QString::fromLatin1(k), QStringLiteral("Row ") + QLatin1String(k));
        QSignalSpy changed(combo, &zelCombo::Changed);
        auto *cbo = combo->findChild<QComboBox *>("cboValue");
        QTest::mouseClick(cbo, Qt::LeftButton);
        QVERIFY(combo->DropDownVisible());
        QTreeView *view = combo->DropDownView();
        const QRect row = view->visualRect(view->model()->index(1, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(events(changed), QList<bool>{true});
        QCOMPARE(combo->SelectedRecord()->Key(), QStringLiteral("b"));
        QCOMPARE(cbo->currentText(), QStringLiteral("Row b"));
        QVERIFY(!combo->DropDownVisible());
    }

    void treeKeyboardChoosesGrandchild()
    {
        zelTestScope scope;
        auto *tree = new zelComboTree;
        Form f(tree);
        tree->AddItem(QString(), QStringLiteral("farm"), QStringLiteral("Farm"), {}, {}, {}, true,
                      false);
        tree->AddItem(QStringLiteral("farm"), QStringLiteral("field"), QStringLiteral("Field"), {},
                      {}, {}, true, false);
        tree->AddItem(QStringLiteral("field"), QStringLiteral("zone"), QStringLiteral("Zone 1"), {},
                      {}, {}, true, false);
        tree->AddItem(QString(), QStringLiteral("farm2"), QStringLiteral("Farm 2"));
        QSignalSpy changed(tree, &zelComboTree::Changed);
        auto *cbo = tree->findChild<QComboBox *>("cboValue");
        QTest::keyClick(cbo, Qt::Key_F4);
        QVERIFY(tree->DropDownVisible());
        QTreeView *view = tree->DropDownView();
        for (Qt::Key k : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Plus, Qt::Key_Down})
            QTest::keyClick(view, k);
        QCOMPARE(changed.count(), 0);
        QTest::keyClick(view, Qt::Key_Return);
        QCOMPARE(events(changed), QList<bool>{true});
        QCOMPARE(tree->SelectedKey(), QStringLiteral("zone"));
        QCOMPARE(tree->SelectedRecord()->Parent()->Key(), QStringLiteral("field"));
        QCOMPARE(tree->SelectedRecord()->Level(), 0);
        QCOMPARE(cbo->currentText(), QStringLiteral("Zone 1"));
        QVERIFY(!tree->DropDownVisible());
        // The closed combo's arrows walk the rows as the drop-down lists them.
        QTest::keyClick(cbo, Qt::Key_Up);
        QCOMPARE(tree->SelectedKey(), QStringLiteral("field"));
        QTest::keyClick(cbo, Qt::Key_Down);
        QTest::keyClick(cbo, Qt::Key_Down);
        QCOMPARE(tree->SelectedKey(), QStringLiteral("farm2"));
        QCOMPARE(events(changed), (QList<bool>{true, true, true, true}));
    }

    void enterMovesOn_data()
    {
        zelColumns<bool, bool, bool>({"tree", "sendKeysTab", "moves"});
        zelRow("combo", false, true, true);
        zelRow("combo without SendKeysTab", false, false, false);
        zelRow("combo tree", true, false, true);
    }
    void enterMovesOn()
    {
        const auto [tree, sendKeysTab, moves] =
            zelFetch<bool, bool, bool>({"tree", "sendKeysTab", "moves"});
        zelTestScope scope;
        zelRecordCombo *control =
            tree ? static_cast<zelRecordCombo *>(new zelComboTree) : new zelCombo;
        control->SetSendKeysTab(sendKeysTab);
        Form f(control);
        auto *cbo = control->findChild<QComboBox *>("cboValue");
        cbo->setFocus();
        QTest::keyClick(cbo, Qt::Key_Return);
        QCOMPARE(f.next->hasFocus(), moves);
        QCOMPARE(scope.fake().tabsFrom.size(), moves ? 1 : 0);
    }

    void clearRaisesNothingAndKeepsHostRecords()
    {
        zelTestScope scope;
        auto *combo = new zelCombo;
        Form f(combo);
        combo->AddItem(QStringLiteral("a"), QStringLiteral("A"), 7);
        combo->AddItem(QStringLiteral("b"), QStringLiteral("B"));
        combo->SelectItem(QStringLiteral("a"));
        const auto kept = combo->SelectedRecord();
        combo->ShowDropDown();
        QSignalSpy changed(combo, &zelCombo::Changed);
        combo->Clear();
        QVERIFY(!combo->SelectedRecord());
        QCOMPARE(combo->Records()->Count(), 0);
        QCOMPARE(combo->Model().RowCount(), 0);
        QCOMPARE(kept->Key(), QStringLiteral("a"));
        QCOMPARE(kept->Tag(), QVariant(7));
        // Columns set while rows exist clear them the same way.
        combo->AddItem(QStringLiteral("c"), QStringLiteral("C"));
        combo->SelectItem(QStringLiteral("c"));
        changed.clear();
        combo->SetColumns(QStringLiteral("X\tY"));
        QCOMPARE(combo->Records()->Count(), 0);
        QVERIFY(!combo->SelectedRecord());
        QCOMPARE(changed.count(), 0);
        QVERIFY(!combo->Records()->Item(-1) && !combo->Records()->Item(1e12));
    }

    void absurdColumns_data()
    {
        zelColumns<QString, int, int>({"colText", "columns", "errors"});
        zelRow("10^4 tabs", QString(10000, QLatin1Char('\t')), int(zel::zelMaxColumns), 1);
        zelRow("width beyond 16 bits", QStringLiteral("A~99999\tB~20"), 2, 1);
    }
    void absurdColumns()
    {
        const auto [colText, columns, errors] =
            zelFetch<QString, int, int>({"colText", "columns", "errors"});
        zelTestScope scope;
        zelCombo combo;
        combo.AddItem(QStringLiteral("a"), QStringLiteral("A"));
        combo.SetColumns(colText);
        QCOMPARE(combo.Model().ColumnCount(), columns);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelCombo.Columns Let")), errors);
        QCOMPARE(combo.Records()->Count(), 0);
        QVERIFY(combo.AddItem(QStringLiteral("b"), QStringLiteral("B")));
    }

    void storedAsymmetries()
    {
        zelTestScope scope;
        zelCombo placed;
        placed.InitProperties();
        zelMemoryPropertyBag bag;
        placed.WriteProperties(bag);
        QCOMPARE(bag.ReadProperty(QStringLiteral("Enabled"), true), QVariant(false));
        QCOMPARE(bag.ReadProperty(QStringLiteral("Columns"), QString()), QVariant("~"));
        zelComboTree tree;
        tree.InitProperties();
        zelMemoryPropertyBag treeBag;
        tree.WriteProperties(treeBag);
        QCOMPARE(treeBag.ReadProperty(QStringLiteral("Enabled"), QVariant()), QVariant());

        // Loaded: Columns kept but not shown, Enabled not put on the widget.
        bag.SetValue(QStringLiteral("Columns"), QStringLiteral("<A\t>B"));
        zelCombo loaded;
        loaded.ReadProperties(bag);
        QCOMPARE(loaded.Columns(), QStringLiteral("<A\t>B"));
        QCOMPARE(loaded.Model().ColumnCount(), 1);
        QCOMPARE(loaded.Model().headerData(0, Qt::Horizontal).toString(),
                 QStringLiteral("Default"));
        QVERIFY(!loaded.Enabled());
        QVERIFY(loaded.findChild<QComboBox *>("cboValue")->isEnabled());
    }
};

QTEST_MAIN(tst_Combo)
#include "tst_combo.moc"
