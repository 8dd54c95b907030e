// The zelCtrl gallery: one page per control family, a live event log, a
// switch for the debug message boxes, and Save/Load of each page's form.
//
//   zelGallery                 shows the window
//   zelGallery --screenshot D  writes one PNG per page into D, and one more
//                              per combo with its drop-down open, and exits

#include "zelGallery.h"

#include "core/mLog.h"
#include "lists/zelRecordCombo.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>

namespace {

QString formFile(int page)
{
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(dir);
    return dir + QStringLiteral("/form-%1.json").arg(page);
}

QString slug(const QString &title)
{
    QString s = title.toLower();
    for (QChar &c : s)
        if (!c.isLetterOrNumber())
            c = QLatin1Char('-');
    return s;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zelGallery"));
    QApplication::setOrganizationName(QStringLiteral("Quorvane"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The zelCtrl control gallery"));
    parser.addHelpOption();
    QCommandLineOption shots(QStringLiteral("screenshot"),
                             QStringLiteral("Write one PNG per page into <dir> and exit."),
                             QStringLiteral("dir"));
    parser.addOption(shots);
    parser.process(app);

    QMainWindow window;
    window.setWindowTitle(QStringLiteral("zelCtrl gallery"));
    auto *central = new QWidget;
    auto *outer = new QVBoxLayout(central);

    auto *bar = new QHBoxLayout;
    auto *debug = new QCheckBox(QStringLiteral("ConDebug: show logged errors"));
    debug->setObjectName(QStringLiteral("chkConDebug"));
    debug->setChecked(mLog::ConDebug() != 0);
    auto *save = new QPushButton(QStringLiteral("Save form"));
    auto *load = new QPushButton(QStringLiteral("Load form"));
    bar->addWidget(debug);
    bar->addStretch();
    bar->addWidget(save);
    bar->addWidget(load);
    outer->addLayout(bar);

    auto *split = new QSplitter(Qt::Vertical);
    auto *tabs = new QTabWidget;
    auto *log = new zelEventLog;
    split->addWidget(tabs);
    split->addWidget(log);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 1);
    outer->addWidget(split);
    window.setCentralWidget(central);

    auto pages = zelGalleryPages();
    std::sort(pages.begin(), pages.end(),
              [](const zelGalleryPage &a, const zelGalleryPage &b) { return a.order < b.order; });
    for (const zelGalleryPage &p : pages)
        tabs->addTab(p.make(log), p.title);

    QObject::connect(debug, &QCheckBox::toggled, [log](bool on) {
        mLog::SetConDebug(on ? 1 : 0);
        log->Say(QStringLiteral("ConDebug = %1").arg(on ? 1 : 0));
    });
    QObject::connect(save, &QPushButton::clicked, [&] {
        const QString f = formFile(tabs->currentIndex());
        zelSaveForm(tabs->currentWidget(), f);
        log->Say(QStringLiteral("Saved form to ") + f);
    });
    QObject::connect(load, &QPushButton::clicked, [&] {
        const QString f = formFile(tabs->currentIndex());
        zelLoadForm(tabs->currentWidget(), f);
        log->Say(QStringLiteral("Loaded form from ") + f);
    });

    window.resize(1000, 720);

    if (parser.isSet(shots)) {
        const QString dir = parser.value(shots);
        if (!QDir().mkpath(dir)) {
            std::fprintf(stderr, "cannot create %s\n", qPrintable(dir));
            return 1;
        }
        window.show();
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            QApplication::processEvents();
            const QString file = QDir(dir).filePath(QStringLiteral("%1-%2.png")
                                                        .arg(i + 1, 2, 10, QLatin1Char('0'))
                                                        .arg(slug(tabs->tabText(i))));
            if (!window.grab().save(file)) {
                std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
                return 1;
            }
            std::printf("%s\n", qPrintable(file));
            // A page may show more states: each action "zelShot-<name>" is one more shot.
            for (QAction *state : tabs->currentWidget()->findChildren<QAction *>()) {
                if (!state->objectName().startsWith(QLatin1String("zelShot-")))
                    continue;
                state->trigger();
                QApplication::processEvents();
                const QString more = QString(file).replace(
                    QStringLiteral(".png"), state->objectName().mid(7) + QStringLiteral(".png"));
                if (!window.grab().save(more))
                    return 1;
                std::printf("%s\n", qPrintable(more));
            }
            // A drop-down is a window of its own: the screen holds both.
            // Only combos one can see: a pane the wizard has not shown yet holds some.
            for (zelRecordCombo *combo : tabs->currentWidget()->findChildren<zelRecordCombo *>()) {
                if (!combo->isVisible())
                    continue;
                combo->ShowDropDown();
                QApplication::processEvents();
                const QString open = QString(file).replace(QStringLiteral(".png"),
                                                           QLatin1Char('-') + combo->objectName() +
                                                               QStringLiteral("-open.png"));
                const QRect area = window.frameGeometry();
                const bool saved =
                    window.screen()
                        ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
                        .save(open);
                combo->HideDropDown();
                QApplication::processEvents();
                if (!saved) {
                    std::fprintf(stderr, "cannot write %s\n", qPrintable(open));
                    return 1;
                }
                std::printf("%s\n", qPrintable(open));
            }
        }
        return 0;
    }

    window.show();
    return app.exec();
}
