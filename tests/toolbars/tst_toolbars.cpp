// Toolbars as an application sees them: one control on its main window,
// toolbars and menus built through the object model, the events a click
// raises, and the layout the user leaves, saved and brought back.

#include "platform/zelLateBinding.h"
#include "platform/zelPlatform.h"
#include "platform/zelSettingsGroup.h"
#include "toolbars/zelToolbarCtrl.h"
#include "toolbars/zelToolbarCustomise.h"
#include "toolbars/zelToolbarLayout.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace {

// An application's main window as it builds its toolbars: "File" with New,
// Open, a separator and Save; "View" with two zoom options; a menu bar whose
// "FileMenu" shows the same New, Open and Save. A newer version of the
// application also has the tool "Print" and the toolbar "Draw".
struct App
{
    QMainWindow window;
    zelToolbarCtrl *ctl;
    QStringList heard;

    explicit App(bool newer = false) : ctl(new zelToolbarCtrl(&window))
    {
        ctl->setObjectName(QStringLiteral("ctlToolbars"));
        auto file = ctl->Create("File", "File");
        file->Tools()->Create("New", "&New")->SetCommand("file.new");
        file->Tools()->Create("Open", "&Open");
        file->Tools()->Create("Sep1", "", ZEL_Toolbar_ToolSeparator);
        if (newer)
            file->Tools()->Create("Print", "&Print");
        file->Tools()->Create("Save", "&Save")->SetCommand("file.save");
        auto view = ctl->Create("View", "View");
        view->Tools()->Create("ZoomIn", "Zoom in", ZEL_Toolbar_ToolOption)->SetGroup("zoom");
        view->Tools()->Create("ZoomOut", "Zoom out", ZEL_Toolbar_ToolOption)->SetGroup("zoom");
        if (newer)
            ctl->Create("Draw", "Draw")->Tools()->Create("Line", "Line");
        auto menus = ctl->Create("Menus", "Menu bar");
        menus->SetMenuBar(true);
        auto fileMenu = menus->Tools()->Create("FileMenu", "&File", ZEL_Toolbar_ToolMenu);
        for (const char *key : {"New", "Open", "Save"})
            fileMenu->Tools()->Add(QString::fromLatin1(key));
        QObject::connect(ctl, &zelToolbarCtrl::ToolClicked, ctl,
                         [this](const QString &s) { heard << "ToolClicked " + s; });
        QObject::connect(ctl, &zelToolbarCtrl::CommandClicked, ctl,
                         [this](const QString &s) { heard << "CommandClicked " + s; });
        QObject::connect(ctl, &zelToolbarCtrl::ToolbarClosed, ctl,
                         [this](const QString &s) { heard << "ToolbarClosed " + s; });
        window.resize(640, 480);
        window.show();
    }
    QToolBar *bar(const char *key) const { return ctl->Item(QString::fromLatin1(key))->Bar(); }
    QAbstractButton *button(const char *bar, const char *tool) const
    {
        auto t = ctl->Tools()->Item(QString::fromLatin1(tool));
        return qobject_cast<QAbstractButton *>(this->bar(bar)->widgetForAction(t->Action()));
    }
    zel::ToolbarLayoutState layout() const { return zel::CaptureToolbarLayout(*ctl->Toolbars()); }
};

// Each test's own per-user settings store.
struct Store
{
    QTemporaryDir dir;
    Store() { qputenv("ZEL_USER_SETTINGS", dir.filePath("user.ini").toUtf8()); }
    ~Store() { qunsetenv("ZEL_USER_SETTINGS"); }
};

QString keyOf(const QVariant &v)
{
    QObject *o = zel::ObjectOf(v);
    return o ? o->property("Key").toString() : QStringLiteral("<nothing>");
}

} // namespace

class tst_Toolbars : public QObject
{
    Q_OBJECT

private slots:
    // Each member called by name on the control answers what the same call
    // answers on a toolbars object built alike, and acts on the control's own.
    void controlForwardsEveryMember_data()
    {
        zelColumns<QString, QVariantList, QString>({"member", "args", "after"});
        zelRow("Item by key", QStringLiteral("Item"), QVariantList{"view"}, QString("2"));
        zelRow("Item by position", QStringLiteral("Item"), QVariantList{1}, QString("2"));
        zelRow("Item unknown", QStringLiteral("Item"), QVariantList{"Nope"}, QString("2"));
        zelRow("IsToolBar", QStringLiteral("IsToolBar"), QVariantList{"FILE"}, QString("2"));
        zelRow("IsToolBar unknown", QStringLiteral("IsToolBar"), QVariantList{"x"}, QString("2"));
        zelRow("Create", QStringLiteral("Create"), QVariantList{"Extra", "Extra"}, QString("3"));
        zelRow("Create taken", QStringLiteral("Create"), QVariantList{"File", "F"}, QString("2"));
        zelRow("Remove", QStringLiteral("Remove"), QVariantList{"File"}, QString("1"));
        zelRow("Remove unknown", QStringLiteral("Remove"), QVariantList{"Nope"}, QString("2"));
        zelRow("Clear", QStringLiteral("Clear"), QVariantList{}, QString("0"));
        zelRow("Unload", QStringLiteral("Unload"), QVariantList{}, QString("0"));
        zelRow("ToolbarVisible", QStringLiteral("ToolbarVisible"), QVariantList{"View", false},
               QString("2 View hidden"));
        zelRow("Refresh", QStringLiteral("Refresh"), QVariantList{}, QString("2"));
    }
    void controlForwardsEveryMember()
    {
        const auto [member, args, after] =
            zelFetch<QString, QVariantList, QString>({"member", "args", "after"});
        zelTestScope scope;
        QMainWindow a, b;
        auto *ctl = new zelToolbarCtrl(&a);
        zelToolbars twin;
        // A late-bound host hands the window over by name.
        QVERIFY(zel::SetProperty(&twin, "NativeControl", QVariant::fromValue<QObject *>(&b)));
        QCOMPARE(twin.NativeControl(), &b);
        for (QObject *o : {static_cast<QObject *>(ctl), static_cast<QObject *>(&twin)}) {
            zel::CallByName(o, "Create", {"File", "File"});
            zel::CallByName(o, "Create", {"View", "View"});
        }
        bool ok = false;
        const QVariant viaControl = zel::CallByName(ctl, member, args, &ok);
        QVERIFY(ok);
        if (member != "Refresh") {
            const QVariant direct = zel::CallByName(&twin, member, args);
            QCOMPARE(zel::ObjectOf(viaControl) ? keyOf(viaControl) : viaControl.toString(),
                     zel::ObjectOf(direct) ? keyOf(direct) : direct.toString());
        }
        const auto own = ctl->Toolbars();
        QString state = QString::number(ctl->property("Count").toInt());
        if (own->IsToolBar("View") && !own->Item("View")->Visible())
            state += " View hidden";
        QCOMPARE(state, after);
        QCOMPARE(own->Count(), ctl->property("Count").toInt());
        QCOMPARE(member == "Unload", own->NativeControl() == nullptr);
    }

    // Events raised through the control: their names, arguments and order;
    // a label and a menu raise nothing, and IgnoreEvents silences all.
    void clickRaisesEvents_data()
    {
        zelColumns<QString, bool, QStringList>({"tool", "ignore", "heard"});
        zelRow("tool with a command", QStringLiteral("Save"), false,
               QStringList{"ToolClicked Save", "CommandClicked file.save"});
        zelRow("tool without one", QStringLiteral("Open"), false, QStringList{"ToolClicked Open"});
        zelRow("option", QStringLiteral("ZoomOut"), false, QStringList{"ToolClicked ZoomOut"});
        zelRow("ignored", QStringLiteral("Save"), true, QStringList{});
        zelRow("ignored option", QStringLiteral("ZoomIn"), true, QStringList{});
        zelRow("handler unloads", QStringLiteral("Save"), false, QStringList{"ToolClicked Save"});
    }
    void clickRaisesEvents()
    {
        const auto [tool, ignore, heard] =
            zelFetch<QString, bool, QStringList>({"tool", "ignore", "heard"});
        zelTestScope scope;
        App app;
        QVERIFY(zel::SetProperty(app.ctl, "IgnoreEvents", ignore));
        QCOMPARE(app.ctl->Toolbars()->IgnoreEvents(), ignore);
        const char *bar = tool.startsWith("Zoom") ? "View" : "File";
        const bool unload = QByteArray(QTest::currentDataTag()) == "handler unloads";
        if (unload)
            connect(app.ctl, &zelToolbarCtrl::ToolClicked, app.ctl, &zelToolbarCtrl::Unload);
        QTest::mouseClick(app.button(bar, qPrintable(tool)), Qt::LeftButton);
        QCOMPARE(app.heard, heard);
        QCOMPARE(app.ctl->Count(), unload ? 0 : 3);
        QCOMPARE(app.window.menuBar()->actions().isEmpty(), unload);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    // One tool in a toolbar and a menu: one state, one click, gone from both.
    void toolIsSharedByToolbarAndMenu()
    {
        zelTestScope scope;
        App app;
        auto save = app.ctl->Tools()->Item("save");
        QAction *inMenu = nullptr;
        for (QAction *a : app.window.menuBar()->actions())
            if (a->menu())
                for (QAction *m : a->menu()->actions())
                    if (m->text() == "&Save")
                        inMenu = m;
        QVERIFY(inMenu);
        save->SetCaption("Save &all");
        save->SetEnabled(false);
        QCOMPARE(inMenu->text(), QStringLiteral("Save &all"));
        QVERIFY(!app.button("File", "Save")->isEnabled());
        save->SetEnabled(true);
        inMenu->trigger();
        QCOMPARE(app.heard, (QStringList{"ToolClicked Save", "CommandClicked file.save"}));
        QVERIFY(app.ctl->Tools()->Remove("Save"));
        QVERIFY(!app.ctl->Item("File")->Tools()->Item("Save"));
        QVERIFY(!app.ctl->Tools()->Item("FileMenu")->Tools()->Item("Save"));
        QVERIFY(!app.bar("File")->actions().contains(save->Action()));
    }

    // Pressing an option releases the others of its group and no other.
    void optionReleasesItsGroupOnly()
    {
        zelTestScope scope;
        App app;
        auto tools = app.ctl->Tools();
        auto other = app.ctl->Item("View")->Tools()->Create("Pan", "Pan", ZEL_Toolbar_ToolOption);
        other->SetGroup("mode");
        other->SetChecked(true);
        tools->Item("ZoomIn")->SetChecked(true);
        QTest::mouseClick(app.button("View", "ZoomOut"), Qt::LeftButton);
        QVERIFY(tools->Item("ZoomOut")->Checked());
        QVERIFY(!tools->Item("ZoomIn")->Checked());
        QVERIFY(other->Checked());
        tools->Item("ZoomOut")->SetChecked(false); // the host may release all
        QVERIFY(!tools->Item("ZoomOut")->Checked() && !tools->Item("ZoomIn")->Checked());
    }

    // Bad calls are logged under their trail and leave everything as it was.
    void badCallsAreRefused_data()
    {
        zelColumns<QString, QString>({"call", "trail"});
        zelRow("tool key twice", QStringLiteral("key twice"), QStringLiteral("zelTools.Create"));
        zelRow("tool on a removed toolbar", QStringLiteral("removed"),
               QStringLiteral("zelTools.Create"));
        zelRow("tool twice on a toolbar", QStringLiteral("twice here"),
               QStringLiteral("zelTools.Add"));
        zelRow("menu into itself", QStringLiteral("loop"), QStringLiteral("zelTools.Add"));
        zelRow("Remove unknown", QStringLiteral("remove"), QStringLiteral("zelToolbars.Remove"));
        zelRow("ToolbarVisible unknown", QStringLiteral("visible"),
               QStringLiteral("zelToolbars.ToolbarVisible"));
        zelRow("window no main window", QStringLiteral("window"),
               QStringLiteral("zelToolbars.NativeControl Set"));
        zelRow("picture unknown", QStringLiteral("picture"), QStringLiteral("zelTool.Picture Let"));
    }
    void badCallsAreRefused()
    {
        const auto [call, trail] = zelFetch<QString, QString>({"call", "trail"});
        zelTestScope scope;
        App app;
        auto bars = app.ctl->Toolbars();
        const auto before = app.layout();
        const qint32 tools = bars->Tools()->Count();
        QWidget plain;
        if (call == "key twice")
            QVERIFY(!bars->Item("View")->Tools()->Create("sAVE", "Again"));
        if (call == "removed") {
            auto held = bars->Item("View");
            QVERIFY(app.ctl->Remove("View"));
            QVERIFY(!held->Tools()->Create("Late", "Late"));
            QVERIFY(!app.window.findChildren<QToolBar *>().contains(held->Bar()) ||
                    !held->Bar()->isVisible());
        }
        if (call == "twice here")
            QVERIFY(!bars->Item("File")->Tools()->Add("new"));
        if (call == "loop") {
            auto menu = bars->Tools()->Item("FileMenu");
            auto sub = menu->Tools()->Create("Recent", "Recent", ZEL_Toolbar_ToolMenu);
            QVERIFY(!sub->Tools()->Add("FileMenu"));
        }
        if (call == "remove")
            QVERIFY(!bars->Remove("Nope"));
        if (call == "visible")
            bars->ToolbarVisible("Nope", false);
        if (call == "window") {
            zel::SetProperty(bars.get(), "NativeControl", QVariant::fromValue<QObject *>(&plain));
            QCOMPARE(bars->NativeControl(), &app.window);
        }
        if (call == "picture") {
            bars->Tools()->Item("Open")->SetPicture("no such image");
            QVERIFY(!bars->Tools()->Item("Open")->Picture().isValid());
        }
        QCOMPARE(zelLoggedErrors(trail), 1);
        QCOMPARE(zelLoggedErrors(), 1);
        QCOMPARE(bars->Tools()->Count(), tools + (call == "loop" ? 1 : 0));
        if (call != "removed")
            QCOMPARE(app.layout(), before);
    }

    // A floating toolbar that the user closes, and one hidden from the
    // window's menu of toolbars, raise ToolbarClosed; one hidden by the
    // host raises nothing.
    void userClosingToolbarRaisesToolbarClosed()
    {
        zelTestScope scope;
        App app;
        app.ctl->ToolbarVisible("File", false);
        app.ctl->Item("File")->SetVisible(true);
        app.ctl->Item("View")->SetDockedPosition(ZEL_Toolbar_Floating);
        QCOMPARE(app.ctl->Item("View")->DockedPosition(), ZEL_Toolbar_Floating);
        QVERIFY(app.bar("View")->close());
        app.bar("File")->toggleViewAction()->trigger();
        app.ctl->SetIgnoreEvents(true);
        app.ctl->Item("Menus")->SetMenuBar(false);
        app.bar("Menus")->toggleViewAction()->trigger();
        QCOMPARE(app.heard, (QStringList{"ToolbarClosed View", "ToolbarClosed File"}));
        QVERIFY(!app.ctl->Item("View")->Visible() && !app.ctl->Item("File")->Visible());
    }

    // Nothing of the control shows at run time; in a designer it is a box
    // with its name.
    void controlShowsOnlyInDesigner_data()
    {
        zelColumns<bool, int>({"userMode", "border"});
        zelRow("run time", true, 0);
        zelRow("designer", false, 1);
    }
    void controlShowsOnlyInDesigner()
    {
        const auto [userMode, border] = zelFetch<bool, int>({"userMode", "border"});
        zelTestScope scope;
        QMainWindow outer; // the control binds the main window it is on, not the outer one
        auto &form = *new QMainWindow;
        outer.setCentralWidget(&form);
        zel::SetUserMode(&outer, userMode);
        auto *ctl = new zelToolbarCtrl(&form);
        ctl->setObjectName("ctlToolbars");
        ctl->Create("File", "File");
        outer.show();
        ctl->resize(200, 30);
        auto *name = ctl->findChild<QLabel *>("lblName");
        QCOMPARE(ctl->BorderStyle(), border);
        QCOMPARE(name->isVisible(), !userMode);
        if (!userMode)
            QCOMPARE(name->text(), QStringLiteral("ctlToolbars"));
        QCOMPARE(ctl->Toolbars()->NativeControl() == &form, userMode);
    }

    // What the user left comes back in the next run of the application,
    // merged with what a newer version builds.
    void layoutComesBackInTheNextRun()
    {
        zelTestScope scope;
        Store store;
        zel::ToolbarLayoutState left;
        {
            App run;
            zelToolbarLayout layout(run.ctl->Toolbars(), "Mapper");
            QVERIFY(layout.Restore()); // nothing saved yet
            run.ctl->ToolbarVisible("View", false);
            run.ctl->Item("File")->SetDockedPosition(ZEL_Toolbar_DockedLeft);
            run.ctl->Item("File")->Tools()->Reorder({"Save", "New"});
            left = run.layout();
            QVERIFY(layout.Save());
        }
        App next;
        zelToolbarLayout layout(next.ctl->Toolbars(), "Mapper");
        QVERIFY(layout.Restore());
        QCOMPARE(next.layout(), left);
        QCOMPARE(next.ctl->Item("File")->DockedPosition(), ZEL_Toolbar_DockedLeft);
        QVERIFY(!next.bar("View")->isVisible());
        // Docked toolbars take the left edge, the menu bar the top, nothing the others.
        const auto bars = next.ctl->Toolbars();
        QVERIFY(bars->LeftMargin() > 0 && bars->TopMargin() > 0);
        QCOMPARE(bars->RightMargin() + bars->BottomMargin(), 0);
        // Another application's layout is its own.
        App other;
        QVERIFY(zelToolbarLayout(other.ctl->Toolbars(), "Other").Restore());
        QVERIFY(other.bar("View")->isVisible());

        App newer(true);
        zelToolbarLayout newLayout(newer.ctl->Toolbars(), "Mapper");
        QVERIFY(newLayout.Restore());
        QCOMPARE(newer.ctl->Item("File")->Tools()->Keys(),
                 (QStringList{"Save", "New", "Open", "Sep1", "Print"}));
        QStringList order;
        for (const auto &bar : newer.layout().Toolbars)
            order << bar.Key;
        QCOMPARE(order.indexOf("Draw"), order.indexOf("View") + 1);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void mergeKeepsWhatIsStillThere_data()
    {
        zelColumns<QStringList, QStringList, QStringList>({"app", "saved", "merged"});
        zelRow("same tools", QStringList{"a", "b", "c"}, QStringList{"c", "a", "b"},
               QStringList{"c", "a", "b"});
        zelRow("tool added", QStringList{"a", "b", "n", "c"}, QStringList{"c", "b", "a"},
               QStringList{"c", "b", "n", "a"});
        zelRow("tool added first", QStringList{"n", "a", "b"}, QStringList{"b", "a"},
               QStringList{"n", "b", "a"});
        zelRow("tool removed", QStringList{"a", "c"}, QStringList{"c", "b", "a"},
               QStringList{"c", "a"});
        zelRow("letter case and twice", QStringList{"a", "b"}, QStringList{"B", "b", "A"},
               QStringList{"B", "A"});
        zelRow("nothing saved", QStringList{"a", "b"}, QStringList{}, QStringList{"a", "b"});
    }
    void mergeKeepsWhatIsStillThere()
    {
        const auto [app, saved, merged] =
            zelFetch<QStringList, QStringList, QStringList>({"app", "saved", "merged"});
        const auto merge = zel::MergeToolbarLayout({{{"T", true, 0, false, app}}},
                                                   {{{"t", false, 3, true, saved}}});
        QCOMPARE(merge.Toolbars.size(), 1);
        QCOMPARE(merge.Toolbars[0].Tools, merged);
        QCOMPARE(merge.Toolbars[0].Dock, 3);
        QVERIFY(!merge.Toolbars[0].Visible);
    }

    // A saved layout that is corrupt or foreign is logged, and the
    // application's own layout stays.
    void corruptLayoutFallsBack_data()
    {
        zelColumns<QVariant>({"stored"});
        zelRow("no JSON", QVariant("{\"Version\":1,\"Toolbars\":["));
        zelRow("no object", QVariant("[1,2]"));
        zelRow("no version", QVariant("{\"Toolbars\":[]}"));
        zelRow("newer version", QVariant("{\"Version\":99,\"Toolbars\":[]}"));
        zelRow("toolbars no list", QVariant("{\"Version\":1,\"Toolbars\":{}}"));
        zelRow("dock out of range", QVariant("{\"Version\":1,\"Toolbars\":[{\"Key\":\"File\","
                                             "\"Visible\":false,\"Dock\":9,\"Tools\":[]}]}"));
        zelRow("tool key a number", QVariant("{\"Version\":1,\"Toolbars\":[{\"Key\":\"File\","
                                             "\"Visible\":false,\"Dock\":0,\"Tools\":[7]}]}"));
        zelRow("a list", QVariant(QStringList{"a", "b"}));
        zelRow("binary", QVariant(QByteArray("\x00\xff\x12", 3)));
    }
    void corruptLayoutFallsBack()
    {
        QFETCH(QVariant, stored);
        zelTestScope scope;
        Store store;
        QString error;
        QVERIFY(zel::WriteUserGroup("Toolbars/Mapper", {{"Layout", stored}}, error));
        App app;
        const auto built = app.layout();
        zelToolbarLayout layout(app.ctl->Toolbars(), "Mapper");
        QVERIFY(!layout.Restore());
        QCOMPARE(zelLoggedErrors("zelToolbarLayout.Restore"), 1);
        QCOMPARE(app.layout(), built);
        QCOMPARE(scope.fake().messages.size(), 0);
    }

    // The dialog: OK applies the toolbars shown and the tool order dragged,
    // Cancel changes nothing, Reset brings back the application's layout.
    void customiseDialog_data()
    {
        zelColumns<QString, bool, QStringList>({"button", "viewShown", "fileTools"});
        zelRow("OK", QStringLiteral("cmdOK"), false, QStringList{"Open", "New", "Sep1", "Save"});
        zelRow("Cancel", QStringLiteral("cmdCancel"), true,
               QStringList{"New", "Open", "Sep1", "Save"});
        zelRow("Reset then OK", QStringLiteral("reset"), true,
               QStringList{"New", "Open", "Sep1", "Save"});
    }
    void customiseDialog()
    {
        const auto [button, viewShown, fileTools] =
            zelFetch<QString, bool, QStringList>({"button", "viewShown", "fileTools"});
        zelTestScope scope;
        App app;
        zelToolbarLayout layout(app.ctl->Toolbars(), "Mapper");
        QVERIFY(layout.Restore());
        if (button == "reset")
            app.ctl->Item("File")->Tools()->Reorder({"Save"});
        QPointer<QDialog> dialog = layout.Customise(&app.window);
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Customise"));
        auto *bars = dialog->findChild<QListWidget *>("lstToolbars");
        auto *tools = dialog->findChild<QListWidget *>("lstTools");
        auto *view = bars->findItems("View", Qt::MatchExactly).value(0);
        QVERIFY(view);
        view->setCheckState(Qt::Unchecked);
        bars->setCurrentItem(bars->findItems("File", Qt::MatchExactly).value(0));
        QCOMPARE(tools->findItems("----", Qt::MatchExactly).size(), 1);
        QVERIFY(tools->model()->moveRow({}, 0, {}, 2)); // a drop moves the row
        if (button == "reset") {
            dialog->findChild<QAbstractButton *>("cmdReset")->click();
            QCOMPARE(bars->findItems("View", Qt::MatchExactly).value(0)->checkState(), Qt::Checked);
        }
        const QString press = button == "reset" ? QStringLiteral("cmdOK") : button;
        QTest::mouseClick(dialog->findChild<QWidget *>(press), Qt::LeftButton);
        QCOMPARE(app.ctl->Item("View")->Visible(), viewShown);
        QCOMPARE(app.ctl->Item("File")->Tools()->Keys(), fileTools);
        QTRY_VERIFY(!dialog);
    }
};

QTEST_MAIN(tst_Toolbars)
#include "tst_toolbars.moc"
