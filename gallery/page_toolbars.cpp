#include "zelGallery.h"

#include "toolbars/zelToolbarCtrl.h"
#include "toolbars/zelToolbarCustomise.h"
#include "toolbars/zelToolbarLayout.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

// The toolbars of a small mapping application, built through the control
// on a main window of its own: a menu bar with "File" and "View" menus, a
// "Standard" toolbar that shares its tools with the File menu, and a
// "Map" toolbar with a group of map tools and a check button. Clicks go to
// the event log; the layout the user leaves is saved for the application
// "zelGallery" and comes back on the next start. The Customise dialog
// stands on the page, and the View menu opens it as a dialog too.

namespace {

const QString kApplication = QStringLiteral("zelGallery");

void buildTools(zelToolbarCtrl *ctl)
{
    auto standard = ctl->Create(QStringLiteral("Standard"), QStringLiteral("Standard"));
    auto tools = standard->Tools();
    const struct
    {
        const char *key, *caption, *picture, *shortcut, *command;
    } fileTools[] = {{"New", "&New project", "File", "Ctrl+N", "file.new"},
                     {"Open", "&Open...", "Folder", "Ctrl+O", "file.open"},
                     {"Save", "&Save", "Load", "Ctrl+S", "file.save"}};
    for (const auto &t : fileTools) {
        auto tool = tools->Create(QString::fromLatin1(t.key), QString::fromLatin1(t.caption));
        tool->SetPicture(QString::fromLatin1(t.picture));
        tool->SetShortcut(QString::fromLatin1(t.shortcut));
        tool->SetCommand(QString::fromLatin1(t.command));
        tool->SetToolTip(QString::fromLatin1(t.caption).remove(QLatin1Char('&')));
    }
    tools->Create(QStringLiteral("StdSep"), QString(), ZEL_Toolbar_ToolSeparator);
    tools->Create(QStringLiteral("Layers"), QStringLiteral("&Layers"))
        ->SetPicture(QStringLiteral("Layers"));

    auto map = ctl->Create(QStringLiteral("Map"), QStringLiteral("Map"));
    map->Tools()->Create(QStringLiteral("MapLabel"), QStringLiteral("Map:"), ZEL_Toolbar_ToolLabel);
    const char *mapTools[][3] = {{"Select", "Select", "OpNode"},
                                 {"Pan", "Pan", "Field"},
                                 {"Measure", "Measure", "Distance"}};
    for (const auto &t : mapTools) {
        auto tool = map->Tools()->Create(QString::fromLatin1(t[0]), QString::fromLatin1(t[1]),
                                         ZEL_Toolbar_ToolOption);
        tool->SetGroup(QStringLiteral("mapmode"));
        tool->SetPicture(QString::fromLatin1(t[2]));
        tool->SetCommand(QStringLiteral("map.") + QString::fromLatin1(t[0]).toLower());
    }
    ctl->Tools()->Item(QStringLiteral("Select"))->SetChecked(true);
    map->Tools()->Create(QStringLiteral("MapSep"), QString(), ZEL_Toolbar_ToolSeparator);
    auto grid =
        map->Tools()->Create(QStringLiteral("Grid"), QStringLiteral("Grid"), ZEL_Toolbar_ToolCheck);
    grid->SetPicture(QStringLiteral("Width"));
    grid->SetCommand(QStringLiteral("map.grid"));

    // The menu bar: the File menu shows the Standard toolbar's own tools.
    auto menus = ctl->Create(QStringLiteral("Menus"), QStringLiteral("Menu bar"));
    menus->SetMenuBar(true);
    auto file = menus->Tools()->Create(QStringLiteral("FileMenu"), QStringLiteral("&File"),
                                       ZEL_Toolbar_ToolMenu);
    for (const char *key : {"New", "Open", "Save"})
        file->Tools()->Add(QString::fromLatin1(key));
    file->Tools()->Create(QStringLiteral("FileSep"), QString(), ZEL_Toolbar_ToolSeparator);
    file->Tools()
        ->Create(QStringLiteral("Exit"), QStringLiteral("E&xit"))
        ->SetCommand(QStringLiteral("file.exit"));
    auto view = menus->Tools()->Create(QStringLiteral("ViewMenu"), QStringLiteral("&View"),
                                       ZEL_Toolbar_ToolMenu);
    view->Tools()->Add(QStringLiteral("Grid"));
    view->Tools()
        ->Create(QStringLiteral("Customise"), QStringLiteral("&Customise..."))
        ->SetCommand(QStringLiteral("view.customise"));
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *outer = new QHBoxLayout(page);

    auto *app = new QMainWindow;
    app->setObjectName(QStringLiteral("frmMapper"));
    auto *ctl = new zelToolbarCtrl(app);
    ctl->setObjectName(QStringLiteral("ctlToolbars"));
    ctl->setGeometry(0, 0, 1, 1);
    log->Watch(ctl, ctl->objectName());
    buildTools(ctl);
    auto *canvas = new QLabel(QStringLiteral("Map canvas"));
    canvas->setAlignment(Qt::AlignCenter);
    canvas->setFrameShape(QFrame::StyledPanel);
    app->setCentralWidget(canvas);
    app->setStatusBar(new QStatusBar);
    outer->addWidget(app, 3);

    auto *layout = new zelToolbarLayout(ctl->Toolbars(), kApplication, page);
    layout->Restore();

    auto *side = new QVBoxLayout;
    auto *save = new QPushButton(QStringLiteral("Save layout"));
    auto *reset = new QPushButton(QStringLiteral("Reset layout"));
    auto *margins = new QPushButton(QStringLiteral("Margins"));
    for (QPushButton *b : {save, reset, margins})
        side->addWidget(b);
    side->addWidget(new QLabel(QStringLiteral("Customise")));
    outer->addLayout(side, 2);

    // The dialog on the page; after OK or Cancel it shows the toolbars anew.
    auto *panel = new zelToolbarCustomise(layout, page);
    panel->setWindowFlags(Qt::Widget);
    side->addWidget(panel, 1);
    QObject::connect(panel, &QDialog::finished, panel, [=](int result) {
        log->Say(result ? QStringLiteral("Customise: OK") : QStringLiteral("Customise: Cancel"));
        panel->Reload();
        panel->show();
    });

    QObject::connect(ctl, &zelToolbarCtrl::CommandClicked, page, [=](const QString &command) {
        if (command == QLatin1String("view.customise"))
            layout->Customise(app);
        app->statusBar()->showMessage(command);
    });
    QObject::connect(save, &QPushButton::clicked, page, [=] {
        log->Say(layout->Save() ? QStringLiteral("Layout saved for ") + kApplication
                                : QStringLiteral("Layout not saved"));
    });
    QObject::connect(reset, &QPushButton::clicked, page, [=] { layout->Reset(); });
    QObject::connect(margins, &QPushButton::clicked, page, [=] {
        const auto bars = ctl->Toolbars();
        log->Say(QStringLiteral("Margins in twips: left %1, top %2, right %3, bottom %4")
                     .arg(bars->LeftMargin())
                     .arg(bars->TopMargin())
                     .arg(bars->RightMargin())
                     .arg(bars->BottomMargin()));
    });
    return page;
}

const zelGalleryPageRegistrar registrar(72, QStringLiteral("Toolbars"), makePage);

} // namespace
