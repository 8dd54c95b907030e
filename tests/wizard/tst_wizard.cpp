// The wizard driven as a user and a host drive it: panes of the library and
// a pane written in plain Qt, chained by name, with the events each move
// raises, the buttons it leaves, the captions by language, the layout in
// twips, and bad input that must leave the wizard where it was.

#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "wizard/zelPane.h"
#include "wizard/zelPaneContract.h"
#include "wizard/zelPropertyPages.h"
#include "wizard/zelWizard.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

namespace {

// A pane with no class of the library behind it.
class PlainPane : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QObject *PaneInterface READ paneInterface)
    Q_PROPERTY(QString Pane MEMBER pane)
    Q_PROPERTY(QString NextPane MEMBER next)
    Q_PROPERTY(QString PreviousPane MEMBER previous)
    Q_PROPERTY(bool IsFirstPane MEMBER first)
    Q_PROPERTY(bool CanBack MEMBER on)
    Q_PROPERTY(bool CanNext MEMBER on)
    Q_PROPERTY(bool CanCancel MEMBER on)
    Q_PROPERTY(bool CanFinish MEMBER last)
    Q_PROPERTY(bool CouldBack MEMBER on)
    Q_PROPERTY(bool CouldNext MEMBER on)
    Q_PROPERTY(bool CouldCancel MEMBER on)
    Q_PROPERTY(bool CouldFinish MEMBER last)
    Q_PROPERTY(int PaneStyle MEMBER style)

public:
    using QWidget::QWidget;
    QObject *paneInterface() { return this; }
    Q_INVOKABLE bool EnterPane(int eDirection)
    {
        log->append(QStringLiteral("Enter(%1,%2)").arg(pane).arg(eDirection));
        return true;
    }
    Q_INVOKABLE bool LeavePane(int eDirection)
    {
        log->append(QStringLiteral("Leave(%1,%2)").arg(pane).arg(eDirection));
        return !veto;
    }
    QString pane, next, previous;
    bool first = false, on = true, last = false, veto = false;
    int style = ZEL_PaneStyle_None;
    QStringList *log = nullptr;
};

// Answers a text where a pane answers an object.
class FalsePane : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString PaneInterface READ paneInterface)
    Q_PROPERTY(QString Pane READ paneInterface)

public:
    using QWidget::QWidget;
    QString paneInterface() const { return QStringLiteral("A"); }
};

// A form with a wizard whose contained controls are written as tokens:
// Name[>Next][<Previous][!flags], "_" for a blank in a name; a leading "~"
// makes a plain Qt pane, "-" a label, "?" a false pane. Flags: f first, l
// last, v the pane vetoes leaving, h the host vetoes leaving it, b no Back
// shown, n no Next shown, c no Cancel shown, x Cancel not usable.
struct Rig
{
    QWidget form;
    zelWizard *wiz = new zelWizard(&form);
    QStringList log;
    QSet<QString> hostVetoes;

    explicit Rig(const QString &panes)
    {
        wiz->resize(640, 400);
        // Built as a designer builds a form: nothing starts while it is.
        zel::SetUserMode(&form, false);
        static const QRegularExpression token(
            QStringLiteral("^([~?-]?)([^>!<]*)(?:>([^!<]*))?(?:<([^!]*))?(?:!(\\w+))?$"));
        for (const QString &t : panes.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const auto m = token.match(t);
            QString name = m.captured(2).replace(QLatin1Char('_'), QLatin1Char(' '));
            const QString flags = m.captured(5);
            if (m.captured(1) == QLatin1String("-")) {
                new QLabel(name, wiz);
            } else if (m.captured(1) == QLatin1String("?")) {
                new FalsePane(wiz);
            } else if (m.captured(1) == QLatin1String("~")) {
                auto *p = new PlainPane(wiz);
                p->pane = name, p->next = m.captured(3), p->previous = m.captured(4);
                p->first = flags.contains('f'), p->last = flags.contains('l');
                p->veto = flags.contains('v'), p->log = &log;
            } else {
                auto *p = new zelPane(wiz);
                new QLineEdit(p);
                p->SetPane(name), p->SetNextPane(m.captured(3)), p->SetPreviousPane(m.captured(4));
                p->SetIsFirstPane(flags.contains('f')), p->SetIsLastPane(flags.contains('l'));
                p->SetCanFinish(flags.contains('l')), p->SetCouldBack(!flags.contains('b'));
                p->SetCouldNext(!flags.contains('n')), p->SetCouldCancel(!flags.contains('c'));
                p->SetCanCancel(!flags.contains('x'));
                QObject::connect(p, &zelPane::EnterPane, wiz, [this, p](auto d) {
                    log << QStringLiteral("Enter(%1,%2)").arg(p->Pane()).arg(int(d));
                });
                QObject::connect(p, &zelPane::LeavePane, wiz, [this, p, flags](auto d, bool &c) {
                    log << QStringLiteral("Leave(%1,%2)").arg(p->Pane()).arg(int(d));
                    c = flags.contains('v');
                });
            }
            if (flags.contains('h'))
                hostVetoes << name;
        }
        QObject::connect(wiz, &zelWizard::PaneChanged, wiz, [this](auto o, auto n) {
            log << QStringLiteral("Changed(%1,%2)").arg(o, n);
        });
        QObject::connect(wiz, &zelWizard::LeavingPane, wiz, [this](auto o, auto d, bool &c) {
            log << QStringLiteral("Leaving(%1,%2)").arg(o).arg(int(d));
            c = hostVetoes.contains(o);
        });
        QObject::connect(wiz, &zelWizard::Finish, wiz, [this] { log << QStringLiteral("Finish"); });
        QObject::connect(wiz, &zelWizard::Cancel, wiz, [this] { log << QStringLiteral("Cancel"); });
        zel::SetUserMode(&form, true);
    }
    QPushButton *button(const char *name) { return wiz->findChild<QPushButton *>(name); }
    // Back, Next, Finish, Cancel: upper case usable, lower case shown but
    // not usable, "-" hidden.
    QString buttons()
    {
        QString s;
        for (const char *n : {"cmdBack", "cmdNext", "cmdFinish", "cmdCancel"}) {
            const QPushButton *b = button(n);
            const QChar c = QLatin1Char(n[3]);
            s += b->isHidden() ? QChar('-') : b->isEnabled() ? c : c.toLower();
        }
        return s;
    }
    // The current name and the index of the one contained control shown.
    QString current()
    {
        const QList<QWidget *> c = wiz->ContainedControls();
        QList<int> shown;
        for (int i = 0; i < c.size(); ++i)
            if (!c[i]->isHidden() && zel::PaneInterfaceOf(c[i]))
                shown << i;
        const QString at = shown.size() == 1 ? QString::number(shown[0]) : QStringLiteral("-");
        return wiz->CurrentPane().replace(QLatin1Char(' '), QLatin1Char('_')) + "#" + at;
    }
    void act(const QString &action)
    {
        if (action == "next" || action == "back" || action == "finish" || action == "cancel")
            button(qPrintable("cmd" + action.left(1).toUpper() + action.mid(1)))->click();
        else if (action == "enter")
            QTest::keyClick(wiz, Qt::Key_Return);
        else if (action == "esc")
            QTest::keyClick(wiz, Qt::Key_Escape);
        else if (action == "reset")
            wiz->Reset();
        else if (action == "off")
            wiz->SetEnabled(false);
        else if (action == "del")
            delete wiz->FindPane(wiz->CurrentPane());
        else if (action.startsWith("view:"))
            log << QStringLiteral("View=%1").arg(wiz->ViewPane(action.mid(5).replace('_', ' ')));
        else if (action.startsWith("can:")) // CanNext of the current pane, by name
            zel::SetProperty(wiz->FindPane(wiz->CurrentPane()), "CanNext", action.mid(4) == "1");
    }
};

} // namespace

class tst_Wizard : public QObject
{
    Q_OBJECT

private slots:
    void navigation_data()
    {
        zelColumns<QString, QString, QString, QString, QString>(
            {"panes", "actions", "log", "current", "buttons"});
        const char *start = "Enter(A,2) Changed(,A)";
        auto row = [&](const char *name, const char *panes, const char *actions, QString log,
                       const char *current, const char *buttons) {
            zelRow(name, QString(panes), QString(actions), log, QString(current), QString(buttons));
        };
        row("starts at the first pane", "A>B B", "", start, "A#0", "bN-C");
        row("starts at IsFirstPane", "A>B B!f", "", "Enter(B,2) Changed(,B)", "B#1", "bn-C");
        row("skips what is no pane", "- ?X A>B B", "", start, "A#2", "bN-C");
        row("next writes the back chain", "A>B B", "next",
            QString(start) + " Leave(A,2) Leaving(A,2) Enter(B,2) Changed(A,B)", "B#1", "Bn-C");
        row("back goes where one came from", "A>C B>C C<B", "next back",
            QString(start) + " Leave(A,2) Leaving(A,2) Enter(C,2) Changed(A,C)" +
                " Leave(C,1) Leaving(C,1) Enter(A,1) Changed(C,A)",
            "A#0", "bN-C");
        row("the pane vetoes first", "A>B!v B", "next", QString(start) + " Leave(A,2)", "A#0",
            "bN-C");
        row("the host vetoes after the pane", "A>B!h B", "next",
            QString(start) + " Leave(A,2) Leaving(A,2)", "A#0", "bN-C");
        row("next to no pane stays", "A>Z B", "next", QString(start) + " Leave(A,2) Leaving(A,2)",
            "A#0", "bN-C");
        row("names trimmed in any case", "A>step2 _Step2__", "next",
            QString(start) + " Leave(A,2) Leaving(A,2) Enter( Step2  ,2) Changed(A, Step2  )",
            "_Step2__#1", "Bn-C");
        row("first of two names wins", "A>B B B", "next",
            QString(start) + " Leave(A,2) Leaving(A,2) Enter(B,2) Changed(A,B)", "B#1", "Bn-C");
        row("finish", "A!l", "finish", QString(start) + " Leave(A,0) Leaving(A,0) Finish", "A#0",
            "bnFC");
        row("finish vetoed by the host", "A!lh", "finish",
            QString(start) + " Leave(A,0) Leaving(A,0)", "A#0", "bnFC");
        row("cancel asks no one", "A>B B", "cancel", QString(start) + " Cancel", "A#0", "bN-C");
        row("enter goes next", "A>B B", "enter",
            QString(start) + " Leave(A,2) Leaving(A,2) Enter(B,2) Changed(A,B)", "B#1", "Bn-C");
        row("enter finishes first", "A>B!l B", "enter",
            QString(start) + " Leave(A,0) Leaving(A,0) Finish", "A#0", "bnFC");
        row("enter with nothing to press", "A!n", "enter", start, "A#0", "b--C");
        row("escape cancels a hidden cancel", "A!c", "esc", QString(start) + " Cancel", "A#0",
            "bn--");
        row("a disabled wizard can be cancelled", "A>B B", "off cancel next enter",
            QString(start) + " Cancel", "A#0", "bn-C");
        row("not when the pane says no", "A>B!x B", "off", start, "A#0", "bn-c");
        row("refresh from the pane", "A>B B", "can:0", start, "A#0", "bn-C");
        row("view asks no one", "A>B B C", "view:_c view: view:Z",
            QString(start) + " Changed(A,C) View=1 View=0 View=0", "C#2", "bn-C");
        row("a deleted pane", "A>B B", "next del next finish reset",
            QString(start) + " Leave(A,2) Leaving(A,2) Enter(B,2) Changed(A,B) " + start, "A#0",
            "bN-C");
        row("no panes at all", "- ?X", "reset next finish enter", "", "#-", "BN-C");
        row("a plain Qt pane", "~A>B B>C ~C!l", "next next back back next next finish",
            QString(start) + " Leave(A,2) Leaving(A,2) Enter(B,2) Changed(A,B)" +
                " Leave(B,2) Leaving(B,2) Enter(C,2) Changed(B,C)" +
                " Leave(C,1) Leaving(C,1) Enter(B,1) Changed(C,B)" +
                " Leave(B,1) Leaving(B,1) Enter(A,1) Changed(B,A)" +
                " Leave(A,2) Leaving(A,2) Enter(B,2) Changed(A,B)" +
                " Leave(B,2) Leaving(B,2) Enter(C,2) Changed(B,C) Leave(C,0) Leaving(C,0) Finish",
            "C#2", "BNFC");
    }
    void navigation()
    {
        const auto [panes, actions, log, current, buttons] =
            zelFetch<QString, QString, QString, QString, QString>(
                {"panes", "actions", "log", "current", "buttons"});
        zelTestScope scope;
        Rig rig(panes);
        rig.form.show();
        for (const QString &a : actions.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            rig.act(a);
        QCOMPARE(rig.log.join(QLatin1Char(' ')), log);
        QCOMPARE(rig.current(), current);
        QCOMPARE(rig.buttons(), buttons);
        // The pane's own widgets follow the wizard's Enabled.
        for (auto *edit : rig.wiz->findChildren<QLineEdit *>())
            QCOMPARE(edit->isEnabled(), rig.wiz->Enabled());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void paneGetters_data()
    {
        zelColumns<bool, QString, QString>({"runTime", "pane", "canBackNextCouldFinish"});
        zelRow("run time, no previous", true, QStringLiteral("A>B"), QStringLiteral("010"));
        zelRow("designer, no previous", false, QStringLiteral("A>B"), QStringLiteral("110"));
        zelRow("run time, back to A", true, QStringLiteral("B>C<A"), QStringLiteral("110"));
        zelRow("run time, first", true, QStringLiteral("B>C<A!f"), QStringLiteral("010"));
        zelRow("run time, no next", true, QStringLiteral("B<A"), QStringLiteral("100"));
        zelRow("run time, last", true, QStringLiteral("B>C<A!l"), QStringLiteral("101"));
        zelRow("designer, last", false, QStringLiteral("B>C<A!l"), QStringLiteral("111"));
    }
    void paneGetters()
    {
        const auto [runTime, pane, expected] =
            zelFetch<bool, QString, QString>({"runTime", "pane", "canBackNextCouldFinish"});
        Rig rig(pane);
        zel::SetUserMode(&rig.form, runTime);
        QObject *p = rig.wiz->ContainedControls().at(0);
        QString got;
        for (const char *name : {"CanBack", "CanNext", "CouldFinish"})
            got += zel::GetProperty(p, name).toBool() ? '1' : '0';
        QCOMPARE(got, expected);
    }

    void refreshReachesFirstWizardOnly()
    {
        zelTestScope scope;
        Rig rig("A>B B");
        auto *second = new zelWizard(&rig.form);
        auto *other = new zelPane(second);
        other->SetPane("C"), other->SetNextPane("D"), new zelPane(second);
        rig.form.show();
        other->SetCanNext(false); // asks the first wizard, not its own
        QCOMPARE(second->findChild<QPushButton *>("cmdNext")->isEnabled(), true);
        QWidget lone;
        auto *pane = new zelPane(&lone);
        lone.show();
        pane->SetCanNext(false);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void language_data()
    {
        zelColumns<QStringList, QString>({"steps", "captions"});
        const QString en("Cancel &Next &Back Finish &Help"),
            de("Abbruch &Weiter &Zurück Fertigstellen &Hilfe");
        zelRow("new", QStringList{}, QStringLiteral("&Cancel &Next &Back &Finish &Help"));
        zelRow("empty is English", QStringList{""}, en);
        zelRow("german", QStringList{"german"}, de);
        zelRow("DEUTSCH", QStringList{"DEUTSCH"}, de);
        zelRow("same in capitals", QStringList{"german", "=X", "GERMAN"},
               QString(de).replace("&Weiter", "X"));
        zelRow("deutsch after german", QStringList{"german", "=X", "deutsch"}, de);
        zelRow("other is English", QStringList{"german", "français"}, en);
        zelRow("absurdly long", QStringList{"german", QString(100000, 'g')}, en);
    }
    void language()
    {
        const auto [steps, captions] = zelFetch<QStringList, QString>({"steps", "captions"});
        zelTestScope scope;
        zelWizard wiz;
        for (const QString &s : steps)
            s.startsWith('=') ? wiz.SetNextButtonText(s.mid(1)) : wiz.SetLanguage(s);
        QStringList shown;
        for (const char *n : {"cmdCancel", "cmdNext", "cmdBack", "cmdFinish"})
            shown << wiz.findChild<QPushButton *>(n)->text();
        QCOMPARE(shown.join(' ') + ' ' + wiz.HelpButtonText(), captions);
    }

    void buttonRow_data()
    {
        zelColumns<QString, QList<QRect>>({"shown", "rects"});
        const QRect none;
        // Cancel, Finish, Next, Back and the comment, in a frame 6000 twips wide.
        zelRow("all", QStringLiteral("1111"),
               QList<QRect>{{4800, 120, 1080, 315},
                            {3600, 120, 1080, 315},
                            {2400, 120, 1080, 315},
                            {1200, 120, 1080, 315},
                            {120, 120, 960, 315}});
        zelRow("finish hidden", QStringLiteral("1011"),
               QList<QRect>{{4800, 120, 1080, 315},
                            none,
                            {3600, 120, 1080, 315},
                            {2400, 120, 1080, 315},
                            {120, 120, 2160, 315}});
        zelRow("none", QStringLiteral("0000"),
               QList<QRect>{none, none, none, none, {120, 120, 5760, 315}});
    }
    void buttonRow()
    {
        const auto [shown, rects] = zelFetch<QString, QList<QRect>>({"shown", "rects"});
        std::array<bool, 4> visible{};
        for (size_t i = 0; i < 4; ++i)
            visible[i] = shown.at(qsizetype(i)) == '1';
        const zelWizardButtonsLayout l = zelPlaceWizardButtons(6000, visible);
        QCOMPARE(QList<QRect>(l.Buttons.begin(), l.Buttons.end()) << l.Comment, rects);
    }

    void sizePane_data()
    {
        zelColumns<int, QRect, bool, bool>({"style", "pane", "picture", "header"});
        // A wizard 9000 x 6000 twips: the bottom frame from 5445, the picture
        // column 2460 wide down to 5325, the header band 920 high.
        zelRow("picture", int(ZEL_PaneStyle_Picture), QRect(2580, 120, 6300, 5205), true, false);
        zelRow("header", int(ZEL_PaneStyle_Header), QRect(0, 920, 9000, 4420), false, true);
        zelRow("none", int(ZEL_PaneStyle_None), QRect(0, 0, 9000, 5325), false, false);
    }
    void sizePane()
    {
        const auto [style, pane, picture, header] =
            zelFetch<int, QRect, bool, bool>({"style", "pane", "picture", "header"});
        const zelPaneLayout l = zelSizePane(style, 9000, 6000, 2460, 920);
        QCOMPARE(l.Pane, pane);
        QCOMPARE(l.ShowPicture, picture);
        QCOMPARE(l.ShowHeader, header);
    }

    // The real wizard places its pane and bottom band where the twips
    // layout says, within a pixel, at 96 DPI and at 144.
    void placesItsPartsAtBothDpis_data()
    {
        zelColumns<int>({"twipsPerPixel"});
        zelRow("96 DPI", 15);
        zelRow("144 DPI", 10);
    }
    void placesItsPartsAtBothDpis()
    {
        const auto [tpp] = zelFetch<int>({"twipsPerPixel"});
        zelTestScope scope;
        scope.fake().twipsPerPixel = tpp;
        Rig rig(QStringLiteral("A>B B<A!l"));
        rig.wiz->resize(9000 / tpp, 6000 / tpp);
        rig.form.show();
        QCoreApplication::processEvents();
        QWidget *pane = rig.wiz->findChildren<zelPane *>().first();
        auto near = [tpp](const QRect &pixels, const QRect &twips) {
            const QRect t(pixels.x() * tpp, pixels.y() * tpp, pixels.width() * tpp,
                          pixels.height() * tpp);
            return qAbs(t.left() - twips.left()) < tpp && qAbs(t.top() - twips.top()) < tpp &&
                   qAbs(t.right() - twips.right()) <= tpp &&
                   qAbs(t.bottom() - twips.bottom()) <= tpp;
        };
        QVERIFY2(near(pane->geometry(), QRect(2580, 120, 6300, 5205)),
                 qPrintable(QStringLiteral("pane at %1,%2 %3x%4 pixels")
                                .arg(pane->x())
                                .arg(pane->y())
                                .arg(pane->width())
                                .arg(pane->height())));
        const QWidget *bottom = rig.wiz->findChild<QWidget *>(QStringLiteral("fraBottomBack"));
        QVERIFY(qAbs(bottom->y() * tpp - 5445) < tpp);
        QVERIFY(qAbs((bottom->x() + bottom->width()) * tpp - 9000) <= tpp);
    }

    void progress_data()
    {
        zelColumns<double, double, double, int, int>({"min", "max", "value", "errors", "shown"});
        zelRow("half way", 10.0, 20.0, 15.0, 0, 5000);
        zelRow("min above max", 5.0, 1.0, 3.0, 1, -1);
        zelRow("NaN", qQNaN(), 1.0, 0.5, 1, -1);
        zelRow("value outside", 0.0, 1.0, 2.0, 1, 0);
        zelRow("value NaN", 0.0, 1.0, qQNaN(), 1, 0);
    }
    void progress()
    {
        const auto [min, max, value, errors, shown] =
            zelFetch<double, double, double, int, int>({"min", "max", "value", "errors", "shown"});
        zelTestScope scope;
        Rig rig("A");
        rig.form.show();
        auto *bar = rig.wiz->findChild<QProgressBar *>("prbProgress");
        // A Cancel the user presses during the long step arrives.
        QMetaObject::invokeMethod(rig.button("cmdCancel"), "click", Qt::QueuedConnection);
        rig.wiz->StartProgress("Working", min, max);
        rig.wiz->Progress(value);
        QCOMPARE(rig.log.count("Cancel"), 1);
        QCOMPARE(zelLoggedErrors(), errors);
        QCOMPARE(bar->isHidden() ? -1 : bar->value(), shown);
        rig.wiz->EndProgress();
        QVERIFY(bar->isHidden());
        QVERIFY(!rig.wiz->findChild<QLabel *>("lblComment")->isHidden());
    }

    void propertyPages_data()
    {
        zelColumns<QString, QString, QString, QStringList>({"page", "control", "order", "lists"});
        zelRow("Pane", QStringLiteral("Pane"), QStringLiteral("zelPane"),
               QStringLiteral("Pane PreviousPane NextPane PaneStyle HeaderTitle HeaderDescription"
                              " CanCancel CanFinish CanBack CanNext CouldCancel CouldFinish"
                              " CouldBack CouldNext IsLastPane IsFirstPane"),
               QStringList{"0 - ZEL_PaneStyle_Picture", "1 - ZEL_PaneStyle_Header",
                           "2 - ZEL_PaneStyle_None"});
        zelRow("Wizard", QStringLiteral("Wizard"), QStringLiteral("zelWizard"),
               QStringLiteral("BackButtonText FinishButtonText CancelButtonText NextButtonText"
                              " HeaderHeight PictureWidth"),
               QStringList{"0 - ZEL_FinishMode_Finish", "1 - ZEL_FinishMode_BackNextCancel",
                           "2 - ZEL_FinishMode_BackCancel"});
    }
    // Several controls selected: the first is read, every field is written
    // back to it in the page's order, the others are left alone.
    void propertyPages()
    {
        const auto [page, control, order, lists] =
            zelFetch<QString, QString, QString, QStringList>({"page", "control", "order", "lists"});
        zelTestScope scope;
        QWidget form;
        zel::SetUserMode(&form, false);
        QObject *first = zel::CreateObject("zelCtrl." + control, &form);
        QObject *second = zel::CreateObject("zelCtrl." + control, &form);
        zel::SetProperty(first, "HeaderHeight", 700);
        zel::SetProperty(first, "HeaderTitle", "Mine");
        zelCaptureLogger::errors.clear(); // each class has only one of the two
        std::unique_ptr<QObject> o(zel::CreateObject("zelCtrl." + page));
        auto *p = qobject_cast<zelPropertyPage *>(o.get());
        QVERIFY(p);
        p->SetSelectedControls({first, second});
        p->SelectionChanged();
        auto *list = p->findChildren<QComboBox *>().value(0);
        QStringList items;
        for (int i = 0; i < list->count(); ++i)
            items << list->itemText(i);
        QCOMPARE(items, lists);
        // Every field edited: the one read from the first control shows it.
        for (auto *edit : p->findChildren<QLineEdit *>()) {
            QVERIFY(edit->text() != "Mine" || edit->objectName() == "txtHeaderTitle");
            QVERIFY(edit->text() != "700" || edit->objectName() == "txtHeaderHeight");
            edit->setText(edit->validator() ? QString::number(edit->text().toInt() + 1)
                                            : edit->text() + "x");
        }
        for (auto *check : p->findChildren<QCheckBox *>())
            check->toggle();
        list->setCurrentIndex(1);
        QStringList marked, others;
        connect(first, SIGNAL(PropertyChanged(QString)), this, SLOT(mark(QString)));
        m_marks = &marked;
        p->ApplyChanges();
        QCOMPARE(marked.join(' '), order);
        QCOMPARE(zel::GetProperty(first, "HeaderTitle").toString() +
                     zel::GetProperty(first, "HeaderHeight").toString(),
                 control == "zelPane" ? "Minex" : "701");
        zelMemoryPropertyBag untouched;
        dynamic_cast<zelPersistable *>(second)->WriteProperties(untouched);
        QCOMPARE(untouched.Count(), 0);
        QCOMPARE(zelLoggedErrors(), 0);
    }

private slots:
    void mark(const QString &name) { *m_marks << name; }

private:
    QStringList *m_marks = nullptr;
};

QTEST_MAIN(tst_Wizard)
#include "tst_wizard.moc"
