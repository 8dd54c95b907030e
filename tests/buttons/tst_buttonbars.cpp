#include "buttons/zelPrpButtons.h"
#include "buttons/zelStdButtons.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"

#include "zelFakePlatform.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

namespace {

std::unique_ptr<zelButtonBar> makeBar(const QString &kind)
{
    if (kind == QLatin1String("Std"))
        return std::make_unique<zelStdButtons>();
    return std::make_unique<zelPrpButtons>();
}

QPushButton *button(QWidget *bar, const QString &name)
{
    auto *b = bar->findChild<QPushButton *>(name);
    if (!b)
        qFatal("no button %s", qPrintable(name));
    return b;
}

// The names of the bar's own buttons, Help first (bit 1) to the main one (bit 8).
QStringList ownButtons(const QString &kind)
{
    if (kind == QLatin1String("Std"))
        return {"cmdHelp", "cmdApply", "cmdCancel", "cmdOK"};
    return {"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"};
}

// The visible buttons, from the right edge to the left.
QStringList visibleFromRight(QWidget *bar)
{
    QList<QPushButton *> shown;
    for (QPushButton *b : bar->findChildren<QPushButton *>())
        if (b->isVisibleTo(bar))
            shown.append(b);
    std::sort(shown.begin(), shown.end(),
              [](QPushButton *a, QPushButton *b) { return a->x() > b->x(); });
    QStringList names;
    for (QPushButton *b : shown)
        names.append(b->objectName());
    return names;
}

// Every event of a bar as "Name" or "OptionButton(i)", in the order raised.
QStringList *recordEvents(zelButtonBar *bar)
{
    auto *events = new QStringList;
    QObject::connect(bar, &QObject::destroyed, [events] { delete events; });
    auto say = [events](const char *name) { return [events, name] { events->append(name); }; };
    auto option = [events](qint32 i) { events->append(QStringLiteral("OptionButton(%1)").arg(i)); };
    if (auto *s = qobject_cast<zelStdButtons *>(bar)) {
        QObject::connect(s, &zelStdButtons::OK, say("OK"));
        QObject::connect(s, &zelStdButtons::Cancel, say("Cancel"));
        QObject::connect(s, &zelStdButtons::Apply, say("Apply"));
        QObject::connect(s, &zelStdButtons::Help, say("Help"));
        QObject::connect(s, &zelStdButtons::OptionButton, option);
    } else if (auto *p = qobject_cast<zelPrpButtons *>(bar)) {
        QObject::connect(p, &zelPrpButtons::Add, say("Add"));
        QObject::connect(p, &zelPrpButtons::Remove, say("Remove"));
        QObject::connect(p, &zelPrpButtons::Properties, say("Properties"));
        QObject::connect(p, &zelPrpButtons::Help, say("Help"));
        QObject::connect(p, &zelPrpButtons::OptionButton, option);
    }
    return events;
}

QString pngFile(const QTemporaryDir &dir)
{
    const QString file = dir.filePath(QStringLiteral("star.png"));
    QImage img(16, 16, QImage::Format_ARGB32);
    img.fill(Qt::red);
    img.save(file);
    return file;
}

} // namespace

class tst_ButtonBars : public QObject
{
    Q_OBJECT

private slots:
    void barSizesItselfAndPlacesButtons_data();
    void barSizesItselfAndPlacesButtons();
    void captionsFollowLanguage_data();
    void captionsFollowLanguage();
    void languageWidthIsNotMarkedChanged();
    void propsCaptionStaysOnHiddenBar();
    void switchedCaptionsOfStandardBar_data();
    void switchedCaptionsOfStandardBar();
    void changeBitsKeepsOtherBits_data();
    void changeBitsKeepsOtherBits();
    void focusOnButtonFocusesSingleButtons_data();
    void focusOnButtonFocusesSingleButtons();
    void clicksRaiseTheirEvents_data();
    void clicksRaiseTheirEvents();
    void disabledButtonRaisesNothing();
    void persistenceRoundTrip_data();
    void persistenceRoundTrip();
    void storedWidthYieldsToLanguage_data();
    void storedWidthYieldsToLanguage();
    void corruptBagIsLoggedAndSurvived();
    void badValuesByNameAreLogged_data();
    void badValuesByNameAreLogged();
    void optionButtonCaptions();
    void optionButtonPictures_data();
    void optionButtonPictures();
    void optionButtonPictureFromFile();
    void everyPropertyByName_data();
    void everyPropertyByName();
    void methodsByName();
    void enumerationsAndDispatchIds();
    void embedsAsChildWidget();
};

void tst_ButtonBars::barSizesItselfAndPlacesButtons_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("language");
    QTest::addColumn<qint32>("visible");
    QTest::addColumn<int>("widthTwips");
    QTest::addColumn<QStringList>("fromRight");

    QTest::newRow("Std defaults") << "Std"
                                  << "English" << qint32(ZEL_StdButton_All) << 4680
                                  << QStringList{"cmdHelp", "cmdApply", "cmdCancel", "cmdOK"};
    QTest::newRow("Std OK Cancel")
        << "Std"
        << "English" << qint32(ZEL_StdButton_OKCancel) << 2280 << QStringList{"cmdCancel", "cmdOK"};
    QTest::newRow("Std OK Cancel German")
        << "Std"
        << "german" << qint32(ZEL_StdButton_OKCancel) << 2520 << QStringList{"cmdCancel", "cmdOK"};
    QTest::newRow("Std with options")
        << "Std"
        << "English" << qint32(ZEL_StdButton_OKCancelHelp | ZEL_StdButton_Option0) << 4680
        << QStringList{"cmdHelp", "cmdCancel", "cmdOK", "cmdOption0"};
    QTest::newRow("Std all eight")
        << "Std"
        << "Deutsch" << qint32(255) << 10440
        << QStringList{"cmdHelp",    "cmdApply",   "cmdCancel",  "cmdOK",
                       "cmdOption0", "cmdOption1", "cmdOption2", "cmdOption3"};
    QTest::newRow("Prp defaults") << "Prp"
                                  << "English" << qint32(ZEL_PrpButton_All) << 4680
                                  << QStringList{"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"};
    QTest::newRow("Prp Deutsch") << "Prp"
                                 << "Deutsch" << qint32(ZEL_PrpButton_All) << 5160
                                 << QStringList{"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"};
    QTest::newRow("Prp Add Remove") << "Prp"
                                    << "English" << qint32(ZEL_PrpButton_AddRemove) << 2280
                                    << QStringList{"cmdRemove", "cmdAdd"};
    QTest::newRow("Prp option 3 and Help")
        << "Prp"
        << "English" << qint32(ZEL_PrpButton_Option3 | ZEL_PrpButton_Help) << 2280
        << QStringList{"cmdHelp", "cmdOption3"};
}

void tst_ButtonBars::barSizesItselfAndPlacesButtons()
{
    QFETCH(QString, kind);
    QFETCH(QString, language);
    QFETCH(qint32, visible);
    QFETCH(int, widthTwips);
    QFETCH(QStringList, fromRight);
    zelTestScope scope;

    auto bar = makeBar(kind);
    bar->SetLanguage(language);
    bar->SetButtonsVisible(visible);

    const int tpp = 15;
    QCOMPARE(bar->BarLayout().Size, QSize(widthTwips, 315));
    QCOMPARE(bar->size(), QSize(widthTwips / tpp, 315 / tpp));
    QCOMPARE(visibleFromRight(bar.get()), fromRight);
    // Each button is ButtonWidth wide, the rightmost ends at the right edge,
    // and 120 twips separate neighbours.
    const int w = bar->ButtonWidth();
    for (int i = 0; i < fromRight.size(); ++i) {
        const QRect r = button(bar.get(), fromRight.at(i))->geometry();
        QCOMPARE(r, QRect((widthTwips - w - i * (w + 120)) / tpp, 0, w / tpp, 315 / tpp));
    }
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ButtonBars::captionsFollowLanguage_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("languages"); // set in turn on a new bar
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QStringList>("captions"); // Help, bit 2, bit 4, bit 8
    QTest::addColumn<int>("buttonWidth");

    const QStringList stdEn{"&Help", "&Apply", "Cancel", "OK"};
    const QStringList stdDe{"&Hilfe", "&Ausführen", "Abbruch", "Ok"};
    const QStringList prpEn{"&Help", "&Properties", "Remove", "New"};
    const QStringList prpDe{"&Hilfe", "&Ausführen", "Abbruch", "New"};

    for (const QString &kind : {QStringLiteral("Std"), QStringLiteral("Prp")}) {
        const bool s = kind == QLatin1String("Std");
        const QStringList en = s ? stdEn : prpEn;
        const QStringList de = s ? stdDe : prpDe;
        auto row = [&](const char *name) -> QTestData & {
            return QTest::addRow("%s %s", qPrintable(kind), name);
        };
        row("new bar") << kind << QStringList{} << "English" << en << 1080;
        row("german") << kind << QStringList{"german"} << "german" << de << 1200;
        row("Deutsch") << kind << QStringList{"Deutsch"} << "Deutsch" << de << 1200;
        row("GERMAN after german")
            << kind << QStringList{"german", "GERMAN"} << "german" << de << 1200;
        row("french after german")
            << kind << QStringList{"german", "french"} << "french" << de << 1200;
        row("french after english") << kind << QStringList{"french"} << "french" << en << 1080;
        row("german after french")
            << kind << QStringList{"french", "german"} << "german" << de << 1200;
        row("empty after german") << kind << QStringList{"german", ""} << "English" << en << 1080;
        row("ENGLISH after german")
            << kind << QStringList{"german", "ENGLISH"} << "ENGLISH" << en << 1080;
        row("English after ENGLISH")
            << kind << QStringList{"german", "ENGLISH", "English"} << "ENGLISH" << en << 1080;
    }
}

void tst_ButtonBars::captionsFollowLanguage()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, languages);
    QFETCH(QString, stored);
    QFETCH(QStringList, captions);
    QFETCH(int, buttonWidth);
    zelTestScope scope;

    auto bar = makeBar(kind);
    for (const QString &l : languages)
        bar->SetLanguage(l);
    QCOMPARE(bar->Language(), stored);
    QStringList shown;
    for (const QString &name : ownButtons(kind))
        shown.append(button(bar.get(), name)->text());
    QCOMPARE(shown, captions);
    QCOMPARE(bar->ButtonWidth(), buttonWidth);
    QCOMPARE(bar->width(), (4 * (buttonWidth + 120) - 120) / 15);
    if (kind == QLatin1String("Prp")) {
        // The German flag goes with the captions, but any other language clears it.
        const bool german = zelClassifyLanguage(stored) == zelBarLanguage::German;
        QCOMPARE(bar->IsGerman(), german);
    }
}

void tst_ButtonBars::languageWidthIsNotMarkedChanged()
{
    zelTestScope scope;
    zelPrpButtons bar;
    QSignalSpy marks(&bar, &zelButtonBar::PropertyChanged);
    bar.SetButtonWidth(2000);
    QCOMPARE(marks.count(), 1);
    bar.SetLanguage(QStringLiteral("german"));
    QCOMPARE(bar.ButtonWidth(), 1200);
    QCOMPARE(marks.count(), 1);
}

void tst_ButtonBars::propsCaptionStaysOnHiddenBar()
{
    zelTestScope scope;
    zelPrpButtons bar;
    bar.SetButtonsVisible(0);
    QCOMPARE(bar.size(), QSize(0, 0));
    bar.SetButtonHeight(600);
    bar.SetLanguage(QStringLiteral("german"));
    bar.SetLanguage(QStringLiteral("english"));
    QCOMPARE(button(&bar, "cmdProperties")->text(), QStringLiteral("&Props"));
    QCOMPARE(button(&bar, "cmdAdd")->text(), QStringLiteral("New"));
    QCOMPARE(bar.size(), QSize(0, 0));
    bar.SetButtonsVisible(ZEL_PrpButton_Props);
    QCOMPARE(button(&bar, "cmdProperties")->text(), QStringLiteral("&Properties"));
    QCOMPARE(bar.size(), QSize(72, 40));
}

void tst_ButtonBars::switchedCaptionsOfStandardBar_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("okAsClose");
    QTest::addColumn<bool>("applyAsPreview");
    QTest::addColumn<QString>("ok");
    QTest::addColumn<QString>("apply");

    QTest::newRow("English plain") << "English" << false << false << "OK"
                                   << "&Apply";
    QTest::newRow("English close") << "English" << true << false << "Close"
                                   << "&Apply";
    QTest::newRow("English preview") << "English" << false << true << "OK"
                                     << "&Preview";
    QTest::newRow("German close") << "german" << true << false << "Schließen"
                                  << "&Ausführen";
    QTest::newRow("German preview stays English") << "deutsch" << true << true << "Schließen"
                                                  << "&Preview";
    QTest::newRow("German plain") << "GERMAN" << false << false << "Ok"
                                  << "&Ausführen";
}

void tst_ButtonBars::switchedCaptionsOfStandardBar()
{
    QFETCH(QString, language);
    QFETCH(bool, okAsClose);
    QFETCH(bool, applyAsPreview);
    QFETCH(QString, ok);
    QFETCH(QString, apply);
    zelTestScope scope;

    // Both orders: switches before and after the language.
    for (const bool switchesFirst : {true, false}) {
        zelStdButtons bar;
        QStringList *events = recordEvents(&bar);
        if (switchesFirst) {
            bar.SetOKasClose(okAsClose);
            bar.SetApplyAsPreview(applyAsPreview);
            bar.SetLanguage(language);
        } else {
            bar.SetLanguage(language);
            bar.SetOKasClose(okAsClose);
            bar.SetApplyAsPreview(applyAsPreview);
        }
        QCOMPARE(button(&bar, "cmdOK")->text(), ok);
        QCOMPARE(button(&bar, "cmdApply")->text(), apply);
        button(&bar, "cmdOK")->click();
        button(&bar, "cmdApply")->click();
        QCOMPARE(*events, (QStringList{"OK", "Apply"}));
    }
}

void tst_ButtonBars::changeBitsKeepsOtherBits_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("visibleSet"); // ChangeVisibleButtons, else ChangeEnabledButtons
    QTest::addColumn<qint32>("start");
    QTest::addColumn<qint32>("eButton");
    QTest::addColumn<bool>("on");
    QTest::addColumn<qint32>("expected");

    QTest::newRow("Std Apply disabled") << "Std" << false << 15 << 2 << false << 13;
    QTest::newRow("Std Apply enabled again") << "Std" << false << 13 << 2 << true << 15;
    QTest::newRow("Std OKCancel disabled") << "Std" << false << 15 << 12 << false << 3;
    QTest::newRow("Std options enabled") << "Std" << false << 0 << (16 | 64) << true << 80;
    QTest::newRow("Std already clear") << "Std" << false << 13 << 2 << false << 13;
    QTest::newRow("Std Help hidden") << "Std" << true << 15 << 1 << false << 14;
    QTest::newRow("Std option shown") << "Std" << true << 12 << 128 << true << 140;
    QTest::newRow("Prp Remove disabled") << "Prp" << false << 255 << 4 << false << 251;
    QTest::newRow("Prp AddRemove hidden") << "Prp" << true << 15 << 12 << false << 3;
    QTest::newRow("Prp All shown") << "Prp" << true << 16 << 15 << true << 31;
}

void tst_ButtonBars::changeBitsKeepsOtherBits()
{
    QFETCH(QString, kind);
    QFETCH(bool, visibleSet);
    QFETCH(qint32, start);
    QFETCH(qint32, eButton);
    QFETCH(bool, on);
    QFETCH(qint32, expected);
    zelTestScope scope;

    auto bar = makeBar(kind);
    bar->SetButtonsVisible(visibleSet ? start : 255);
    bar->SetButtonsEnabled(visibleSet ? 255 : start);
    QSignalSpy marks(bar.get(), &zelButtonBar::PropertyChanged);
    const char *method = visibleSet ? "ChangeVisibleButtons" : "ChangeEnabledButtons";
    bool ok = false;
    zel::CallByName(bar.get(), QString::fromLatin1(method), {eButton, on}, &ok);
    QVERIFY(ok);

    QCOMPARE(visibleSet ? bar->ButtonsVisible() : bar->ButtonsEnabled(), expected);
    QCOMPARE(marks.count(), 1);
    QCOMPARE(marks.at(0).at(0).toString(),
             visibleSet ? QStringLiteral("ButtonsVisible") : QStringLiteral("ButtonsEnabled"));
    // The widgets follow the bits.
    QStringList names = ownButtons(kind);
    for (int i = 0; i < 4; ++i)
        names.append(QStringLiteral("cmdOption%1").arg(i));
    for (int slot = 0; slot < 8; ++slot) {
        QPushButton *b = button(bar.get(), names.at(slot));
        const bool bit = (expected & (1 << slot)) != 0;
        if (visibleSet)
            QCOMPARE(b->isVisibleTo(bar.get()), bit);
        else
            QCOMPARE(b->isEnabled(), bit);
    }
}

void tst_ButtonBars::focusOnButtonFocusesSingleButtons_data()
{
    QTest::addColumn<qint32>("eButton");
    QTest::addColumn<QString>("focused"); // "" = the focus stays where it was

    QTest::newRow("Add") << qint32(ZEL_PrpButton_Add) << "cmdAdd";
    QTest::newRow("Remove") << qint32(ZEL_PrpButton_Remove) << "cmdRemove";
    QTest::newRow("Props") << qint32(ZEL_PrpButton_Props) << "cmdProperties";
    QTest::newRow("Option0") << qint32(ZEL_PrpButton_Option0) << "cmdOption0";
    QTest::newRow("Option1") << qint32(ZEL_PrpButton_Option1) << "cmdOption1";
    QTest::newRow("Option2") << qint32(ZEL_PrpButton_Option2) << "cmdOption2";
    QTest::newRow("Option3") << qint32(ZEL_PrpButton_Option3) << "cmdOption3";
    QTest::newRow("Help") << qint32(ZEL_PrpButton_Help) << "";
    QTest::newRow("None") << qint32(ZEL_PrpButton_None) << "";
    QTest::newRow("AddRemove") << qint32(ZEL_PrpButton_AddRemove) << "";
    QTest::newRow("All") << qint32(ZEL_PrpButton_All) << "";
    QTest::newRow("two options") << qint32(ZEL_PrpButton_Option0 | ZEL_PrpButton_Option1) << "";
    QTest::newRow("256") << qint32(256) << "";
}

void tst_ButtonBars::focusOnButtonFocusesSingleButtons()
{
    QFETCH(qint32, eButton);
    QFETCH(QString, focused);
    zelTestScope scope;

    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *edit = new QLineEdit(&window);
    auto *bar = new zelPrpButtons(&window);
    layout->addWidget(edit);
    layout->addWidget(bar);
    bar->SetButtonsVisible(255);
    bar->SetButtonsEnabled(255);
    window.show();
    QApplication::setActiveWindow(&window);
    edit->setFocus();
    const bool active = QTest::qWaitForWindowActive(&window, 1000);

    bool ok = false;
    zel::CallByName(bar, QStringLiteral("FocusOnButton"), {eButton}, &ok);
    QVERIFY(ok);

    QWidget *expected = focused.isEmpty() ? static_cast<QWidget *>(edit) : button(bar, focused);
    QCOMPARE(window.focusWidget(), expected);
    if (!active)
        QSKIP("the platform cannot activate a window; focus checked as the window's focus child");
    QVERIFY(expected->hasFocus());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ButtonBars::clicksRaiseTheirEvents_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("event");

    QTest::newRow("Std OK") << "Std"
                            << "cmdOK"
                            << "OK";
    QTest::newRow("Std Cancel") << "Std"
                                << "cmdCancel"
                                << "Cancel";
    QTest::newRow("Std Apply") << "Std"
                               << "cmdApply"
                               << "Apply";
    QTest::newRow("Std Help") << "Std"
                              << "cmdHelp"
                              << "Help";
    QTest::newRow("Prp Add") << "Prp"
                             << "cmdAdd"
                             << "Add";
    QTest::newRow("Prp Remove") << "Prp"
                                << "cmdRemove"
                                << "Remove";
    QTest::newRow("Prp Properties") << "Prp"
                                    << "cmdProperties"
                                    << "Properties";
    QTest::newRow("Prp Help") << "Prp"
                              << "cmdHelp"
                              << "Help";
    for (const char *kind : {"Std", "Prp"})
        for (int i = 0; i < 4; ++i)
            QTest::addRow("%s option %d", kind, i) << kind << QStringLiteral("cmdOption%1").arg(i)
                                                   << QStringLiteral("OptionButton(%1)").arg(i);
}

void tst_ButtonBars::clicksRaiseTheirEvents()
{
    QFETCH(QString, kind);
    QFETCH(QString, name);
    QFETCH(QString, event);
    zelTestScope scope;

    auto bar = makeBar(kind);
    // Option buttons are shown and enabled only when the host asks for them.
    bar->SetButtonsVisible(255);
    bar->SetButtonsEnabled(255);
    bar->SetLanguage(QStringLiteral("german"));
    QStringList *events = recordEvents(bar.get());
    QTest::mouseClick(button(bar.get(), name), Qt::LeftButton);
    QCOMPARE(*events, QStringList{event});
}

void tst_ButtonBars::disabledButtonRaisesNothing()
{
    zelTestScope scope;
    zelStdButtons bar;
    QStringList *events = recordEvents(&bar);
    bar.ChangeEnabledButtons(ZEL_StdButton_OK, false);
    button(&bar, "cmdOK")->click();
    button(&bar, "cmdCancel")->click();
    QCOMPARE(*events, QStringList{"Cancel"});
}

void tst_ButtonBars::persistenceRoundTrip_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QVariantMap>("set"); // properties set by name, in this order
    QTest::addColumn<QVariantMap>("stored");

    QTest::newRow("Std defaults") << "Std" << QVariantMap{} << QVariantMap{};
    QTest::newRow("Prp defaults") << "Prp" << QVariantMap{} << QVariantMap{};
    QTest::newRow("Std everything")
        << "Std"
        << QVariantMap{{"ButtonHeight", 400}, {"ButtonsVisible", 12},   {"ButtonsEnabled", 8},
                       {"OKasClose", true},   {"ApplyAsPreview", true}, {"Language", "Deutsch"}}
        << QVariantMap{{"ButtonHeight", 400},  {"ButtonWidth", 1200}, {"ButtonsVisible", 12},
                       {"ButtonsEnabled", 8},  {"OKasClose", true},   {"ApplyAsPreview", true},
                       {"Language", "Deutsch"}};
    QTest::newRow("Prp everything") << "Prp"
                                    << QVariantMap{{"ButtonHeight", 360},
                                                   {"ButtonsVisible", 255},
                                                   {"ButtonsEnabled", 31},
                                                   {"Language", "german"}}
                                    << QVariantMap{{"ButtonHeight", 360},
                                                   {"ButtonWidth", 1200},
                                                   {"ButtonsVisible", 255},
                                                   {"ButtonsEnabled", 31},
                                                   {"Language", "german"}};
    QTest::newRow("Prp other language keeps width")
        << "Prp" << QVariantMap{{"ButtonWidth", 900}, {"Language", "french"}}
        << QVariantMap{{"ButtonWidth", 900}, {"Language", "french"}};
}

void tst_ButtonBars::persistenceRoundTrip()
{
    QFETCH(QString, kind);
    QFETCH(QVariantMap, set);
    QFETCH(QVariantMap, stored);
    zelTestScope scope;

    auto bar = makeBar(kind);
    bar->InitProperties();
    // QVariantMap walks its keys in order: ButtonWidth before Language.
    for (auto it = set.cbegin(); it != set.cend(); ++it)
        QVERIFY(zel::SetProperty(bar.get(), it.key(), it.value()));
    zelMemoryPropertyBag bag;
    bar->WriteProperties(bag);
    QCOMPARE(bag.Count(), qsizetype(stored.size()));
    for (auto it = stored.cbegin(); it != stored.cend(); ++it)
        QCOMPARE(bag.Value(it.key()).toString(), it.value().toString());

    auto loaded = makeBar(kind);
    loaded->ReadProperties(bag);
    const QMetaObject *mo = loaded->metaObject();
    for (int i = zelButtonBar::staticMetaObject.propertyOffset(); i < mo->propertyCount(); ++i) {
        const char *name = mo->property(i).name();
        QCOMPARE(loaded->property(name).toString(), bar->property(name).toString());
    }
    QCOMPARE(loaded->size(), bar->size());
    QCOMPARE(loaded->BarLayout(), bar->BarLayout());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ButtonBars::storedWidthYieldsToLanguage_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("language"); // "-" = not stored
    QTest::addColumn<QString>("before");   // the bar's language before loading
    QTest::addColumn<int>("buttonWidth");

    for (const char *kind : {"Std", "Prp"}) {
        QTest::addRow("%s German", kind) << kind << "german"
                                         << "English" << 1200;
        QTest::addRow("%s English", kind) << kind << "English"
                                          << "English" << 1080;
        QTest::addRow("%s no language", kind) << kind << "-"
                                              << "English" << 1080;
        QTest::addRow("%s English into German bar", kind) << kind << "english"
                                                          << "german" << 1080;
        QTest::addRow("%s German into German bar", kind) << kind << "GERMAN"
                                                         << "german" << 1200;
        QTest::addRow("%s other language", kind) << kind << "french"
                                                 << "german" << 2000;
    }
}

void tst_ButtonBars::storedWidthYieldsToLanguage()
{
    QFETCH(QString, kind);
    QFETCH(QString, language);
    QFETCH(QString, before);
    QFETCH(int, buttonWidth);
    zelTestScope scope;

    zelMemoryPropertyBag bag;
    bag.SetValue(QStringLiteral("ButtonWidth"), 2000);
    if (language != QLatin1String("-"))
        bag.SetValue(QStringLiteral("Language"), language);
    auto bar = makeBar(kind);
    bar->SetLanguage(before);
    bar->ReadProperties(bag);
    QCOMPARE(bar->ButtonWidth(), buttonWidth);
    QCOMPARE(bar->width(), (4 * (buttonWidth + 120) - 120) / 15);
    const QString help = button(bar.get(), "cmdHelp")->text();
    QCOMPARE(help, buttonWidth == 1200 ? QStringLiteral("&Hilfe") : QStringLiteral("&Help"));
}

void tst_ButtonBars::corruptBagIsLoggedAndSurvived()
{
    zelTestScope scope;
    zelMemoryPropertyBag bag;
    bag.SetValue(QStringLiteral("ButtonWidth"), QStringLiteral("abc"));
    bag.SetValue(QStringLiteral("ButtonHeight"), -40);
    bag.SetValue(QStringLiteral("OKasClose"), QStringLiteral("maybe"));
    bag.SetValue(QStringLiteral("ButtonsVisible"), 12);
    bag.SetValue(QStringLiteral("ApplyAsPreview"), true);
    bag.SetValue(QStringLiteral("Language"), QVariant::fromValue(QSize(1, 2)));

    zelStdButtons bar;
    bar.ReadProperties(bag);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelStdButtons.UserControl_ReadProperties")), 3);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelStdButtons.ButtonHeight Let")), 1);
    QCOMPARE(zelCaptureLogger::errors.size(), 4);
    // The readable keys are taken, the others keep their defaults.
    QCOMPARE(bar.ButtonsVisible(), 12);
    QCOMPARE(bar.ApplyAsPreview(), true);
    QCOMPARE(bar.OKasClose(), false);
    QCOMPARE(bar.ButtonHeight(), 315);
    QCOMPARE(bar.ButtonWidth(), 1080);
    QCOMPARE(bar.Language(), QStringLiteral("English"));
    QCOMPARE(visibleFromRight(&bar), (QStringList{"cmdCancel", "cmdOK"}));
    QCOMPARE(button(&bar, "cmdApply")->text(), QStringLiteral("&Preview"));
}

void tst_ButtonBars::badValuesByNameAreLogged_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("number");

    QTest::newRow("width text") << "Std"
                                << "ButtonWidth" << QVariant("abc") << 13;
    QTest::newRow("width negative") << "Prp"
                                    << "ButtonWidth" << QVariant(-1) << 380;
    QTest::newRow("width absurd") << "Prp"
                                  << "ButtonWidth" << QVariant(2000000000) << 380;
    QTest::newRow("height negative") << "Std"
                                     << "ButtonHeight" << QVariant(-315) << 380;
    QTest::newRow("visible too big") << "Prp"
                                     << "ButtonsVisible" << QVariant(1e12) << 6;
    QTest::newRow("enabled text") << "Std"
                                  << "ButtonsEnabled" << QVariant("all") << 13;
    QTest::newRow("close maybe") << "Std"
                                 << "OKasClose" << QVariant("maybe") << 13;
    QTest::newRow("preview list") << "Std"
                                  << "ApplyAsPreview" << QVariant(QStringList{"x"}) << 13;
}

void tst_ButtonBars::badValuesByNameAreLogged()
{
    QFETCH(QString, kind);
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    QFETCH(int, number);
    zelTestScope scope;

    auto bar = makeBar(kind);
    const QVariant before = zel::GetProperty(bar.get(), property);
    const QSize size = bar->size();
    zel::SetProperty(bar.get(), property, value);
    const QString source = QString::fromLatin1(bar->metaObject()->className()) + QLatin1Char('.') +
                           property + QStringLiteral(" Let");
    QCOMPARE(zelLoggedErrors(source), 1);
    QCOMPARE(zelCaptureLogger::errors.at(0).at(3).toInt(), number);
    QCOMPARE(zel::GetProperty(bar.get(), property), before);
    QCOMPARE(bar->size(), size);
    QVERIFY(!bar->LayoutBusy());
}

void tst_ButtonBars::optionButtonCaptions()
{
    zelTestScope scope;
    zelPrpButtons bar;
    for (int i = 0; i < 4; ++i)
        zel::CallByName(&bar, QStringLiteral("SetOptionButtonCaption"),
                        {i, QStringLiteral("Option &%1").arg(i)});
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(zel::CallByName(&bar, QStringLiteral("OptionButtonCaption"), {i}).toString(),
                 QStringLiteral("Option &%1").arg(i));
        QCOMPARE(button(&bar, QStringLiteral("cmdOption%1").arg(i))->text(),
                 QStringLiteral("Option &%1").arg(i));
    }
    // A language switch leaves the host's captions alone.
    bar.SetLanguage(QStringLiteral("german"));
    QCOMPARE(bar.OptionButtonCaption(2), QStringLiteral("Option &2"));

    QCOMPARE(bar.OptionButtonCaption(4), QString());
    QCOMPARE(bar.OptionButtonCaption(-1), QString());
    bar.SetOptionButtonCaption(4, QStringLiteral("lost"));
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelPrpButtons.OptionButtonCaption Get")), 2);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelPrpButtons.OptionButtonCaption Let")), 1);
    for (const QVariantList &e : std::as_const(zelCaptureLogger::errors))
        QCOMPARE(e.at(3).toInt(), 9);
    for (QPushButton *b : bar.findChildren<QPushButton *>())
        QVERIFY(b->text() != QLatin1String("lost"));
}

void tst_ButtonBars::optionButtonPictures_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QVariant>("picture"); // "FILE" = a picture file
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<int>("errorNumber"); // 0 = nothing logged

    QPixmap pm(16, 16);
    pm.fill(Qt::blue);
    QImage img(8, 8, QImage::Format_RGB32);
    img.fill(Qt::green);
    QTest::newRow("pixmap") << 0 << QVariant(pm) << true << 0;
    QTest::newRow("icon") << 3 << QVariant(QIcon(pm)) << true << 0;
    QTest::newRow("image") << 1 << QVariant(img) << true << 0;
    QTest::newRow("file") << 2 << QVariant("FILE") << true << 0;
    QTest::newRow("null pixmap") << 0 << QVariant(QPixmap()) << false << 0;
    QTest::newRow("null icon") << 0 << QVariant(QIcon()) << false << 0;
    QTest::newRow("nothing") << 0 << QVariant() << false << 0;
    QTest::newRow("empty file name") << 0 << QVariant("") << false << 0;
    QTest::newRow("missing file") << 0 << QVariant("/nonexistent/x.png") << false << 53;
    QTest::newRow("not a picture") << 0 << QVariant(42) << false << 13;
    QTest::newRow("index 4") << 4 << QVariant(pm) << false << 9;
    QTest::newRow("index -1") << -1 << QVariant(pm) << false << 9;
}

void tst_ButtonBars::optionButtonPictures()
{
    QFETCH(int, index);
    QFETCH(QVariant, picture);
    QFETCH(bool, loaded);
    QFETCH(int, errorNumber);
    zelTestScope scope;

    QTemporaryDir dir;
    if (picture == QVariant("FILE"))
        picture = pngFile(dir);
    zelStdButtons bar;
    bool ok = false;
    const QVariant result =
        zel::CallByName(&bar, QStringLiteral("LoadOptionButtonPicture"), {index, picture}, &ok);
    QVERIFY(ok);
    QCOMPARE(result.toBool(), loaded);
    QCOMPARE(zelLoggedErrors(), errorNumber ? 1 : 0);
    if (errorNumber) {
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelStdButtons.LoadOptionButtonPicture")), 1);
        QCOMPARE(zelCaptureLogger::errors.at(0).at(3).toInt(), errorNumber);
    }
    for (int i = 0; i < 4; ++i)
        QCOMPARE(!button(&bar, QStringLiteral("cmdOption%1").arg(i))->icon().isNull(),
                 loaded && i == index);
}

void tst_ButtonBars::optionButtonPictureFromFile()
{
    zelTestScope scope;
    QTemporaryDir dir;
    zelPrpButtons bar;
    QPushButton *b = button(&bar, "cmdOption1");
    bar.SetOptionButtonPicture(1, pngFile(dir));
    QVERIFY(!b->icon().isNull());
    // A broken file leaves the picture there.
    const QString broken = dir.filePath(QStringLiteral("broken.png"));
    QFile f(broken);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("not a png");
    f.close();
    bar.SetOptionButtonPicture(1, broken);
    QVERIFY(!b->icon().isNull());
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelPrpButtons.OptionButtonPicture Let")), 1);
    QCOMPARE(zelCaptureLogger::errors.at(0).at(3).toInt(), 481);
    // No file name takes the picture off.
    bar.SetOptionButtonPicture(1, QString());
    QVERIFY(b->icon().isNull());
    bar.SetOptionButtonPicture(7, pngFile(dir));
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelPrpButtons.OptionButtonPicture Let")), 2);
}

void tst_ButtonBars::everyPropertyByName_data()
{
    QTest::addColumn<QString>("progId");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("readBack");

    for (const char *id : {"zelCtrl.zelStdButtons", "zelCtrl.zelPrpButtons"}) {
        QTest::addRow("%s Language", id)
            << id << "Language" << QVariant("Deutsch") << QVariant("Deutsch");
        QTest::addRow("%s Language empty", id)
            << id << "Language" << QVariant("") << QVariant("English");
        QTest::addRow("%s ButtonHeight", id)
            << id << "ButtonHeight" << QVariant("450") << QVariant(450);
        QTest::addRow("%s ButtonWidth", id)
            << id << "ButtonWidth" << QVariant(1500.4) << QVariant(1500);
        QTest::addRow("%s ButtonsVisible", id)
            << id << "ButtonsVisible" << QVariant(0x93) << QVariant(0x93);
        QTest::addRow("%s ButtonsEnabled", id)
            << id << "ButtonsEnabled" << QVariant(5) << QVariant(5);
    }
    const char *std = "zelCtrl.zelStdButtons";
    QTest::newRow("OKasClose") << std << "OKasClose" << QVariant("True") << QVariant(true);
    QTest::newRow("ApplyAsPreview") << std << "ApplyAsPreview" << QVariant(-1) << QVariant(true);
}

void tst_ButtonBars::everyPropertyByName()
{
    QFETCH(QString, progId);
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    QFETCH(QVariant, readBack);
    zelTestScope scope;

    std::unique_ptr<QObject> bar(zel::CreateObject(progId));
    QVERIFY(bar);
    QCOMPARE(QString::fromLatin1(bar->metaObject()->className()), progId.mid(8));
    QVERIFY(bar->setProperty(property.toLatin1().constData(), value));
    QCOMPARE(bar->property(property.toLatin1().constData()).toString(), readBack.toString());
    QVERIFY(zel::SetProperty(bar.get(), property.toLower(), value));
    QCOMPARE(zel::GetProperty(bar.get(), property).toString(), readBack.toString());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ButtonBars::methodsByName()
{
    zelTestScope scope;
    std::unique_ptr<QObject> obj(zel::CreateObject(QStringLiteral("zelCtrl.zelPrpButtons")));
    auto *bar = qobject_cast<zelPrpButtons *>(obj.get());
    QVERIFY(bar);
    bool ok = false;
    // The bit set as a number, as a member's value and as a member's name.
    zel::CallByName(bar, QStringLiteral("ChangeVisibleButtons"), {16, true}, &ok);
    QVERIFY(ok);
    zel::CallByName(bar, QStringLiteral("changevisiblebuttons"),
                    {QVariant::fromValue(ZEL_PrpButton_Help), false}, &ok);
    QVERIFY(ok);
    zel::CallByName(bar, QStringLiteral("ChangeEnabledButtons"),
                    {QStringLiteral("ZEL_PrpButton_AddRemove"), false}, &ok);
    QVERIFY(ok);
    QCOMPARE(bar->ButtonsVisible(), 16 | 14);
    QCOMPARE(bar->ButtonsEnabled(), 3);
    zel::CallByName(bar, QStringLiteral("SetOptionButtonCaption"), {0, QStringLiteral("&Zoom")},
                    &ok);
    QVERIFY(ok);
    QCOMPARE(zel::CallByName(bar, QStringLiteral("OptionButtonCaption"), {0}, &ok).toString(),
             QStringLiteral("&Zoom"));
    QVERIFY(ok);
    zel::CallByName(bar, QStringLiteral("InitProperties"), {}, &ok);
    QVERIFY(ok);
    QCOMPARE(bar->ButtonsVisible(), 15);

    std::unique_ptr<QObject> std(zel::CreateObject(QStringLiteral("zelCtrl.zelStdButtons")));
    zel::CallByName(std.get(), QStringLiteral("ChangeEnabledButtons"), {2, false}, &ok);
    QVERIFY(ok);
    QCOMPARE(std->property("ButtonsEnabled").toInt(), 13);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ButtonBars::enumerationsAndDispatchIds()
{
    const QMetaEnum stdEnum = QMetaEnum::fromType<ZEL_StdButtons>();
    const QMetaEnum prpEnum = QMetaEnum::fromType<ZEL_PrpButtons>();
    QCOMPARE(QString::fromLatin1(stdEnum.name()), QStringLiteral("ZEL_StdButtons"));
    QCOMPARE(stdEnum.keyCount(), 20);
    QCOMPARE(prpEnum.keyCount(), 20);
    QCOMPARE(stdEnum.keyToValue("ZEL_StdButton_OKCancelApply"), 14);
    QCOMPARE(stdEnum.keyToValue("ZEL_StdButton_Option3"), 128);
    QCOMPARE(prpEnum.keyToValue("ZEL_PrpButton_RemovePropsHelp"), 7);
    QCOMPARE(prpEnum.keyToValue("ZEL_PrpButton_Option1"), 32);

    const QList<QPair<const char *, const char *>> ids{
        {"Language", "0x68030006"},
        {"ButtonHeight", "0x68030005"},
        {"ButtonWidth", "0x68030004"},
        {"ButtonsVisible", "0x68030003"},
        {"ButtonsEnabled", "0x68030002"},
        {"OptionButtonCaption", "0x68030001"},
        {"OptionButtonPicture", "0x68030000"},
        {"ChangeEnabledButtons", "0x60030007"},
        {"ChangeVisibleButtons", "0x60030008"},
        {"LoadOptionButtonPicture", "0x60030009"},
        {"FocusOnButton", "0x6003000a"},
    };
    const QMetaObject &mo = zelPrpButtons::staticMetaObject;
    for (const auto &[member, id] : ids) {
        const int i = mo.indexOfClassInfo(QByteArray("DispId.") + member);
        QVERIFY2(i >= 0, member);
        QCOMPARE(QByteArray(mo.classInfo(i).value()), QByteArray(id));
    }

    // Events in their published order.
    auto signalsOf = [](const QMetaObject &m) {
        QStringList names;
        for (int i = m.methodOffset(); i < m.methodCount(); ++i)
            if (m.method(i).methodType() == QMetaMethod::Signal)
                names.append(QString::fromLatin1(m.method(i).methodSignature()));
        return names;
    };
    QCOMPARE(signalsOf(zelStdButtons::staticMetaObject),
             (QStringList{"OK()", "Cancel()", "Apply()", "Help()", "OptionButton(int)"}));
    QCOMPARE(signalsOf(zelPrpButtons::staticMetaObject),
             (QStringList{"Add()", "Remove()", "Properties()", "Help()", "OptionButton(int)"}));
}

void tst_ButtonBars::embedsAsChildWidget()
{
    zelTestScope scope;
    QWidget host;
    auto *layout = new QVBoxLayout(&host);
    auto *bar = new zelPrpButtons(&host);
    bar->setObjectName(QStringLiteral("mpbProps"));
    layout->addWidget(bar, 0, Qt::AlignRight);
    host.resize(800, 200);
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    // The host's layout cannot stretch the bar.
    QCOMPARE(bar->size(), QSize(312, 21));
    QCOMPARE(host.findChild<zelPrpButtons *>(QStringLiteral("mpbProps")), bar);
    bar->SetLanguage(QStringLiteral("german"));
    QCoreApplication::processEvents();
    QCOMPARE(bar->size(), QSize(344, 21));
    QCOMPARE(button(bar, "cmdHelp")->geometry().right(), 343);
}

QTEST_MAIN(tst_ButtonBars)
#include "tst_buttonbars.moc"
