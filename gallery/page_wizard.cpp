// A four-step wizard: a picture-style welcome, a header-style step whose
// Next waits for a name and whose option chooses between two next panes
// (one of them written in plain Qt by this page, the other running a long
// step with the progress bar), and a last pane with Finish. Back shows the
// pane one came from. The host's answer to LeavingPane can be switched.

#include "zelGallery.h"

#include "wizard/zelPane.h"
#include "wizard/zelWizard.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>
#include <QVBoxLayout>

namespace {

// A pane with no class of the library behind it: the contract's properties
// and the two invokable methods, nothing else.
class PlainPane : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QObject *PaneInterface READ paneInterface)
    Q_PROPERTY(QString Pane MEMBER pane)
    Q_PROPERTY(QString NextPane MEMBER next)
    Q_PROPERTY(QString PreviousPane MEMBER previous)
    Q_PROPERTY(bool IsFirstPane MEMBER no)
    Q_PROPERTY(bool CanBack MEMBER yes)
    Q_PROPERTY(bool CanNext MEMBER yes)
    Q_PROPERTY(bool CanCancel MEMBER yes)
    Q_PROPERTY(bool CanFinish MEMBER no)
    Q_PROPERTY(bool CouldBack MEMBER yes)
    Q_PROPERTY(bool CouldNext MEMBER yes)
    Q_PROPERTY(bool CouldCancel MEMBER yes)
    Q_PROPERTY(bool CouldFinish MEMBER no)
    Q_PROPERTY(int PaneStyle MEMBER style)
    Q_PROPERTY(QString HeaderTitle MEMBER title)
    Q_PROPERTY(QString HeaderDescription MEMBER description)

public:
    PlainPane(zelEventLog *log, QWidget *parent) : QWidget(parent), m_log(log) {}
    QObject *paneInterface() { return this; }
    Q_INVOKABLE bool EnterPane(int eDirection)
    {
        m_log->Say(
            QStringLiteral("plain pane %1: EnterPane(eDirection=%2)").arg(pane).arg(eDirection));
        return true;
    }
    Q_INVOKABLE bool LeavePane(int eDirection)
    {
        m_log->Say(QStringLiteral("plain pane %1: LeavePane(eDirection=%2) -> True")
                       .arg(pane)
                       .arg(eDirection));
        return true;
    }

    QString pane, next, previous, title, description;
    bool yes = true, no = false;
    int style = ZEL_PaneStyle_Header;

private:
    zelEventLog *m_log;
};

QPixmap sidePicture()
{
    QPixmap p(164, 400);
    QPainter g(&p);
    QLinearGradient grad(0, 0, 0, 400);
    grad.setColorAt(0, QColor(0x1f, 0x4e, 0x79));
    grad.setColorAt(1, QColor(0x9d, 0xc3, 0xe6));
    g.fillRect(p.rect(), grad);
    g.setPen(Qt::white);
    g.setFont(QFont(QStringLiteral("Sans"), 16, QFont::Bold));
    g.drawText(QRect(0, 20, 164, 60), Qt::AlignCenter, QStringLiteral("zelCtrl"));
    return p;
}

QPixmap headerPicture()
{
    QPixmap p(48, 48);
    p.fill(Qt::transparent);
    QPainter g(&p);
    g.setRenderHint(QPainter::Antialiasing);
    g.setBrush(QColor(0x1f, 0x4e, 0x79));
    g.drawEllipse(4, 4, 40, 40);
    return p;
}

zelPane *addPane(zelWizard *wiz, zelEventLog *log, const QString &name, int style,
                 const QString &next)
{
    auto *p = new zelPane(wiz);
    p->setObjectName(QStringLiteral("pan") + name);
    p->SetPane(name);
    p->SetNextPane(next);
    p->SetPaneStyle(style);
    QObject::connect(p, &zelPane::EnterPane, log, [log, name](ZEL_Controls_WizardDirections d) {
        log->Say(QStringLiteral("%1: EnterPane(eDirection=%2)").arg(name).arg(int(d)));
    });
    QObject::connect(p, &zelPane::LeavePane, log,
                     [log, name](ZEL_Controls_WizardDirections d, bool &bCancel) {
                         log->Say(QStringLiteral("%1: LeavePane(eDirection=%2, bCancel=%3)")
                                      .arg(name)
                                      .arg(int(d))
                                      .arg(bCancel));
                     });
    new QVBoxLayout(p);
    return p;
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *row = new QHBoxLayout(page);
    auto *wiz = new zelWizard;
    wiz->setObjectName(QStringLiteral("wizSetup"));
    wiz->setMinimumSize(620, 420);
    wiz->SetPicture(sidePicture());
    wiz->SetHeaderPicture(headerPicture());
    row->addWidget(wiz, 1);

    auto stop = std::make_shared<bool>(false); // Cancel during the long step

    // The host's side first, so that it hears the wizard start: every event
    // with its arguments, and the veto answered.
    auto *side = new QVBoxLayout;
    auto *language = new QComboBox;
    language->setObjectName(QStringLiteral("cboLanguage"));
    language->addItems({QStringLiteral("English"), QStringLiteral("Deutsch")});
    auto *veto = new QCheckBox(QStringLiteral("Host vetoes LeavingPane"));
    veto->setObjectName(QStringLiteral("chkVeto"));
    auto *reset = new QPushButton(QStringLiteral("Reset"));
    auto *comment = new QLineEdit(QStringLiteral("A comment in the bottom row"));
    side->addWidget(new QLabel(QStringLiteral("Language")));
    side->addWidget(language);
    side->addWidget(veto);
    side->addWidget(new QLabel(QStringLiteral("Comment")));
    side->addWidget(comment);
    side->addWidget(reset);
    side->addStretch();
    row->addLayout(side);

    QObject::connect(language, &QComboBox::currentTextChanged, wiz,
                     [wiz](const QString &l) { wiz->SetLanguage(l); });
    QObject::connect(comment, &QLineEdit::textChanged, wiz,
                     [wiz](const QString &t) { wiz->SetComment(t); });
    QObject::connect(reset, &QPushButton::clicked, wiz, [wiz] { wiz->Reset(); });
    QObject::connect(wiz, &zelWizard::PaneChanged, log, [log](const QString &o, const QString &n) {
        log->Say(QStringLiteral("wizSetup: PaneChanged(sOldPane=%1, sNewPane=%2)").arg(o, n));
    });
    QObject::connect(wiz, &zelWizard::LeavingPane, log,
                     [log, veto](const QString &o, ZEL_Controls_WizardDirections d, bool &bCancel) {
                         bCancel = veto->isChecked();
                         log->Say(QStringLiteral("wizSetup: LeavingPane(sOldPane=%1, "
                                                 "eDirection=%2, bCancel) answered bCancel=%3")
                                      .arg(o)
                                      .arg(int(d))
                                      .arg(bCancel));
                     });
    QObject::connect(wiz, &zelWizard::Finish, log,
                     [log] { log->Say(QStringLiteral("wizSetup: Finish")); });
    QObject::connect(wiz, &zelWizard::Cancel, log, [log, stop] {
        *stop = true;
        log->Say(QStringLiteral("wizSetup: Cancel"));
    });

    auto *welcome = addPane(wiz, log, QStringLiteral("Welcome"), ZEL_PaneStyle_Picture,
                            QStringLiteral("Details"));
    welcome->SetIsFirstPane(true);
    auto *hello = new QLabel(QStringLiteral("<h2>Welcome</h2><p>This wizard sets up a map "
                                            "project in four steps.</p>"));
    hello->setWordWrap(true);
    welcome->layout()->addWidget(hello);
    static_cast<QVBoxLayout *>(welcome->layout())->addStretch();

    auto *details =
        addPane(wiz, log, QStringLiteral("Details"), ZEL_PaneStyle_Header, QStringLiteral("Quick"));
    details->SetHeaderTitle(QStringLiteral("Project details"));
    details->SetHeaderDescription(QStringLiteral("Next is enabled once the project has a name."));
    auto *name = new QLineEdit;
    name->setObjectName(QStringLiteral("txtProject"));
    name->setPlaceholderText(QStringLiteral("Project name"));
    auto *quick = new QRadioButton(QStringLiteral("Quick setup (a pane in plain Qt)"));
    auto *full = new QRadioButton(QStringLiteral("Full setup (runs a long step)"));
    quick->setChecked(true);
    for (QWidget *w : {static_cast<QWidget *>(name), static_cast<QWidget *>(quick),
                       static_cast<QWidget *>(full)})
        details->layout()->addWidget(w);
    static_cast<QVBoxLayout *>(details->layout())->addStretch();
    details->SetCanNext(false);
    QObject::connect(name, &QLineEdit::textChanged, details,
                     [details](const QString &t) { details->SetCanNext(!t.trimmed().isEmpty()); });
    QObject::connect(full, &QRadioButton::toggled, details, [details](bool on) {
        details->SetNextPane(on ? QStringLiteral("Full") : QStringLiteral("Quick"));
    });

    auto *plain = new PlainPane(log, wiz);
    plain->setObjectName(QStringLiteral("panQuick"));
    plain->pane = QStringLiteral("Quick");
    plain->next = QStringLiteral("Done");
    plain->title = QStringLiteral("Quick setup");
    plain->description = QStringLiteral("This pane is a plain QWidget with the pane properties.");
    (new QVBoxLayout(plain))->addWidget(new QLabel(QStringLiteral("Defaults will be used.")));

    auto *longStep =
        addPane(wiz, log, QStringLiteral("Full"), ZEL_PaneStyle_Header, QStringLiteral("Done"));
    longStep->SetHeaderTitle(QStringLiteral("Full setup"));
    longStep->SetHeaderDescription(QStringLiteral("Run the long step; Cancel stops it."));
    auto *run = new QPushButton(QStringLiteral("&Run long step"));
    run->setObjectName(QStringLiteral("cmdRunStep"));
    longStep->layout()->addWidget(run);
    static_cast<QVBoxLayout *>(longStep->layout())->addStretch();
    QObject::connect(run, &QPushButton::clicked, wiz, [wiz, log, stop] {
        *stop = false;
        wiz->StartProgress(QStringLiteral("Copying layers..."), 0, 100);
        int i = 0;
        for (; i <= 100 && !*stop; ++i) {
            QThread::msleep(15);
            wiz->Progress(i);
        }
        wiz->EndProgress();
        log->Say(*stop ? QStringLiteral("long step stopped by Cancel at %1").arg(i - 1)
                       : QStringLiteral("long step done"));
    });

    auto *done = addPane(wiz, log, QStringLiteral("Done"), ZEL_PaneStyle_Picture, QString());
    done->SetIsLastPane(true);
    done->SetCanFinish(true);
    done->layout()->addWidget(
        new QLabel(QStringLiteral("<h2>Ready</h2><p>Press Finish, or Back to the pane you came "
                                  "from.</p>")));
    static_cast<QVBoxLayout *>(done->layout())->addStretch();

    wiz->SetComment(comment->text());

    // The screenshot run also shows a header-style pane.
    auto *shot = new QAction(page);
    shot->setObjectName(QStringLiteral("zelShot-header"));
    QObject::connect(shot, &QAction::triggered, wiz, [wiz, name] {
        wiz->findChild<QPushButton *>(QStringLiteral("cmdNext"))->click();
        name->setText(QStringLiteral("Rivers"));
    });
    return page;
}

const zelGalleryPageRegistrar registrar(70, QStringLiteral("Wizard"), makePage);

} // namespace

#include "page_wizard.moc"
