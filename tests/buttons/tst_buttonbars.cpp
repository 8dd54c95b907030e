#include "buttons/zelPrpButtons.h"
#include "buttons/zelStdButtons.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"

#include "zelFakePlatform.h"

#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const int tpp = 15; // twips per pixel on the fake platform

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

// The bar's buttons by bit: Help (1), the second (2), the third (4), the main
// one (8), then the option buttons 0 to 3 (16 to 128).
QStringList buttonsByBit(const QString &kind)
{
    QStringList names = kind == QLatin1String("Std")
                            ? QStringList{"cmdHelp", "cmdApply", "cmdCancel", "cmdOK"}
                            : QStringList{"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"};
    for (int i = 0; i < 4; ++i)
        names.append(QStringLiteral("cmdOption%1").arg(i));
    return names;
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

// A picture file in dir, or a file that only claims to be one.
QString pictureFile(const QTemporaryDir &dir, bool valid = true)
{
    const QString file = dir.filePath(valid ? "star.png" : "broken.png");
    QImage img(16, 16, QImage::Format_ARGB32);
    img.fill(Qt::red);
    QFile f(file);
    const bool written =
        valid ? img.save(file) : f.open(QIODevice::WriteOnly) && f.write("not a png") > 0;
    if (!written)
        qFatal("cannot write %s", qPrintable(file));
    return file;
}

} // namespace

class tst_ButtonBars : public QObject
{
    Q_OBJECT

private slots:
    void barSizesItselfAndPlacesButtons_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("language");
        QTest::addColumn<qint32>("visible");
        QTest::addColumn<int>("widthTwips");
        QTest::addColumn<QStringList>("fromRight");
        auto row = [](const char *name, const char *kind, const char *language, qint32 visible,
                      int width, const QStringList &fromRight) {
            QTest::newRow(name) << QString(kind) << QString(language) << visible << width
                                << fromRight;
        };
        row("Std OK Cancel", "Std", "English", ZEL_StdButton_OKCancel, 2280,
            {"cmdCancel", "cmdOK"});
        row("Std all eight German", "Std", "Deutsch", 255, 10440,
            {"cmdHelp", "cmdApply", "cmdCancel", "cmdOK", "cmdOption0", "cmdOption1", "cmdOption2",
             "cmdOption3"});
        row("Prp defaults", "Prp", "English", ZEL_PrpButton_All, 4680,
            {"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"});
        row("Prp option 3 and Help", "Prp", "English", ZEL_PrpButton_Option3 | ZEL_PrpButton_Help,
            2280, {"cmdHelp", "cmdOption3"});
    }

    void barSizesItselfAndPlacesButtons()
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

    void captionsFollowLanguage_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QStringList>(
            "steps"); // in turn: a switch name turns it on, else a language
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QStringList>("captions"); // Help, bit 2, bit 4, bit 8
        QTest::addColumn<int>("buttonWidth");

        for (const QString &kind : {QStringLiteral("Std"), QStringLiteral("Prp")}) {
            const bool s = kind == QLatin1String("Std");
            const QStringList en = s ? QStringList{"&Help", "&Apply", "Cancel", "OK"}
                                     : QStringList{"&Help", "&Properties", "Remove", "New"};
            const QStringList de = s ? QStringList{"&Hilfe", "&Ausführen", "Abbruch", "Ok"}
                                     : QStringList{"&Hilfe", "&Ausführen", "Abbruch", "New"};
            auto row = [&](const char *name, const QStringList &steps) -> QTestData & {
                return QTest::addRow("%s %s", qPrintable(kind), name) << kind << steps;
            };
            row("new bar", {}) << "English" << en << 1080;
            row("GERMAN after german", {"german", "GERMAN"}) << "german" << de << 1200;
            row("french after german", {"german", "french"}) << "french" << de << 1200;
            row("empty after german", {"german", ""}) << "English" << en << 1080;
            row("Deutsch after french", {"french", "Deutsch"}) << "Deutsch" << de << 1200;
        }
        // The switches of the standard bar, set before and after the language.
        const QStringList closeDe{"&Hilfe", "&Ausführen", "Abbruch", "Schließen"};
        const QStringList previewDe{"&Hilfe", "&Preview", "Abbruch", "Ok"};
        const QStringList bothEn{"&Help", "&Preview", "Cancel", "Close"};
        QTest::newRow("Std close, then german")
            << "Std" << QStringList{"OKasClose", "german"} << "german" << closeDe << 1200;
        QTest::newRow("Std german, then preview in English")
            << "Std" << QStringList{"german", "ApplyAsPreview"} << "german" << previewDe << 1200;
        QTest::newRow("Std close and preview")
            << "Std" << QStringList{"OKasClose", "ApplyAsPreview"} << "English" << bothEn << 1080;
    }

    void captionsFollowLanguage()
    {
        QFETCH(QString, kind);
        QFETCH(QStringList, steps);
        QFETCH(QString, stored);
        QFETCH(QStringList, captions);
        QFETCH(int, buttonWidth);
        zelTestScope scope;

        auto bar = makeBar(kind);
        QSignalSpy marks(bar.get(), &zelButtonBar::PropertyChanged);
        for (const QString &step : steps) {
            if (step.startsWith(QLatin1String("OK")) || step.startsWith(QLatin1String("Apply")))
                QVERIFY(zel::SetProperty(bar.get(), step, true));
            else
                bar->SetLanguage(step);
        }
        QCOMPARE(bar->Language(), stored);
        QStringList shown;
        for (const QString &name : buttonsByBit(kind).first(4))
            shown.append(button(bar.get(), name)->text());
        QCOMPARE(shown, captions);
        QCOMPARE(bar->ButtonWidth(), buttonWidth);
        QCOMPARE(bar->width(), (4 * (buttonWidth + 120) - 120) / tpp);
        // The language's width is no width the host set: it is not marked.
        for (const QList<QVariant> &m : std::as_const(marks))
            QVERIFY(m.at(0).toString() != QLatin1String("ButtonWidth"));
        // The German flag goes with the captions, but any other language clears it.
        if (kind == QLatin1String("Prp"))
            QCOMPARE(bar->IsGerman(), zelClassifyLanguage(stored) == zelBarLanguage::German);
    }

    void propsCaptionStaysOnHiddenBar()
    {
        zelTestScope scope;
        zelPrpButtons bar;
        bar.SetButtonsVisible(0);
        QCOMPARE(bar.size(), QSize(0, 0));
        bar.SetLanguage(QStringLiteral("german"));
        bar.SetLanguage(QStringLiteral("english"));
        QCOMPARE(button(&bar, "cmdProperties")->text(), QStringLiteral("&Props"));
        QCOMPARE(bar.size(), QSize(0, 0));
        bar.SetButtonsVisible(ZEL_PrpButton_Props);
        QCOMPARE(button(&bar, "cmdProperties")->text(), QStringLiteral("&Properties"));
        QCOMPARE(bar.size(), QSize(72, 21));
    }

    void changeBitsKeepsOtherBits_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("method");
        QTest::addColumn<qint32>("start");
        QTest::addColumn<QVariant>("eButton"); // by number, enumeration value or member name
        QTest::addColumn<bool>("on");
        QTest::addColumn<qint32>("expected");
        auto row = [](const char *name, const char *kind, const char *method, qint32 start,
                      const QVariant &eButton, bool on, qint32 expected) {
            QTest::newRow(name) << QString(kind) << QString(method) << start << eButton << on
                                << expected;
        };
        const char *enabled = "ChangeEnabledButtons";
        const char *visible = "ChangeVisibleButtons";
        row("Std Apply disabled", "Std", enabled, 15, QVariant::fromValue(ZEL_StdButton_Apply),
            false, 13);
        row("Std options enabled", "Std", enabled, 0, 16 | 64, true, 80);
        row("Std Help hidden", "Std", "changevisiblebuttons", 15, 1, false, 14);
        row("Prp AddRemove hidden", "Prp", visible, 15, "ZEL_PrpButton_AddRemove", false, 3);
        row("Prp All shown", "Prp", visible, 16, QVariant::fromValue(ZEL_PrpButton_All), true, 31);
    }

    void changeBitsKeepsOtherBits()
    {
        QFETCH(QString, kind);
        QFETCH(QString, method);
        QFETCH(qint32, start);
        QFETCH(QVariant, eButton);
        QFETCH(bool, on);
        QFETCH(qint32, expected);
        zelTestScope scope;

        const bool visibleSet = method.contains(QLatin1String("visible"), Qt::CaseInsensitive);
        auto bar = makeBar(kind);
        bar->SetButtonsVisible(visibleSet ? start : 255);
        bar->SetButtonsEnabled(visibleSet ? 255 : start);
        QSignalSpy marks(bar.get(), &zelButtonBar::PropertyChanged);
        bool ok = false;
        zel::CallByName(bar.get(), method, {eButton, on}, &ok);
        QVERIFY(ok);

        QCOMPARE(visibleSet ? bar->ButtonsVisible() : bar->ButtonsEnabled(), expected);
        QCOMPARE(marks.count(), 1);
        QCOMPARE(marks.at(0).at(0).toString(), visibleSet ? "ButtonsVisible" : "ButtonsEnabled");
        // The widgets follow the bits.
        const QStringList names = buttonsByBit(kind);
        for (int slot = 0; slot < 8; ++slot) {
            QPushButton *b = button(bar.get(), names.at(slot));
            const bool bit = (expected & (1 << slot)) != 0;
            QCOMPARE(visibleSet ? b->isVisibleTo(bar.get()) : b->isEnabled(), bit);
        }
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void focusOnButtonTakesSingleValuesOnly_data()
    {
        QTest::addColumn<qint32>("eButton");
        QTest::addColumn<QString>("focused"); // "" = the focus stays where it was

        QTest::newRow("Add") << qint32(ZEL_PrpButton_Add) << "cmdAdd";
        QTest::newRow("Props") << qint32(ZEL_PrpButton_Props) << "cmdProperties";
        QTest::newRow("Option2") << qint32(ZEL_PrpButton_Option2) << "cmdOption2";
        QTest::newRow("Help") << qint32(ZEL_PrpButton_Help) << "";
        QTest::newRow("AddRemove") << qint32(ZEL_PrpButton_AddRemove) << "";
    }

    void focusOnButtonTakesSingleValuesOnly()
    {
        QFETCH(qint32, eButton);
        QFETCH(QString, focused);
        zelTestScope scope;

        QWidget window;
        auto *edit = new QLineEdit(&window);
        auto *bar = new zelPrpButtons(&window);
        bar->SetButtonsVisible(255);
        bar->SetButtonsEnabled(255);
        edit->setFocus();
        bool ok = false;
        zel::CallByName(bar, QStringLiteral("FocusOnButton"), {eButton}, &ok);
        QVERIFY(ok);
        QWidget *expected = focused.isEmpty() ? static_cast<QWidget *>(edit) : button(bar, focused);
        QCOMPARE(window.focusWidget(), expected);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void everyButtonRaisesItsEvent_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QStringList>("events"); // clicking the buttons by bit

        const QStringList options{"OptionButton(0)", "OptionButton(1)", "OptionButton(2)",
                                  "OptionButton(3)"};
        QTest::newRow("Std") << "Std" << QStringList{"Help", "Apply", "Cancel", "OK"} + options;
        QTest::newRow("Prp") << "Prp"
                             << QStringList{"Help", "Properties", "Remove", "Add"} + options;
    }

    void everyButtonRaisesItsEvent()
    {
        QFETCH(QString, kind);
        QFETCH(QStringList, events);
        zelTestScope scope;

        auto bar = makeBar(kind);
        // Option buttons are shown and enabled only when the host asks for them.
        bar->SetButtonsVisible(255);
        bar->SetButtonsEnabled(255);
        bar->SetLanguage(QStringLiteral("german"));
        // Switched captions raise the buttons' own events all the same.
        if (auto *s = qobject_cast<zelStdButtons *>(bar.get())) {
            s->SetOKasClose(true);
            s->SetApplyAsPreview(true);
        }
        QStringList *raised = recordEvents(bar.get());
        for (const QString &name : buttonsByBit(kind))
            QTest::mouseClick(button(bar.get(), name), Qt::LeftButton);
        QCOMPARE(*raised, events);
    }

    void persistenceRoundTrip_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QVariantMap>("set"); // properties set by name, in this order
        QTest::addColumn<QVariantMap>("stored");

        QTest::newRow("Std defaults store nothing") << "Std" << QVariantMap{} << QVariantMap{};
        const QVariantMap everything{{"ButtonHeight", 400},    {"ButtonsVisible", 12},
                                     {"ButtonsEnabled", 8},    {"OKasClose", true},
                                     {"ApplyAsPreview", true}, {"Language", "Deutsch"}};
        QVariantMap everythingStored = everything;
        everythingStored.insert(QStringLiteral("ButtonWidth"), 1200);
        QTest::newRow("Std everything") << "Std" << everything << everythingStored;
        const QVariantMap french{{"ButtonWidth", 900}, {"Language", "french"}};
        QTest::newRow("Prp other language keeps width") << "Prp" << french << french;
    }

    void persistenceRoundTrip()
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
        for (int i = zelButtonBar::staticMetaObject.propertyOffset(); i < mo->propertyCount();
             ++i) {
            const char *name = mo->property(i).name();
            QCOMPARE(loaded->property(name).toString(), bar->property(name).toString());
        }
        QCOMPARE(loaded->BarLayout(), bar->BarLayout());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void storedWidthYieldsToLanguage_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("language"); // "-" = not stored
        QTest::addColumn<QString>("before");   // the bar's language before loading
        QTest::addColumn<int>("buttonWidth");
        auto row = [](const char *name, const char *kind, const char *language, const char *before,
                      int width) {
            QTest::newRow(name) << QString(kind) << QString(language) << QString(before) << width;
        };
        row("German", "Std", "german", "English", 1200);
        row("no language", "Std", "-", "English", 1080);
        row("English into German bar", "Std", "english", "german", 1080);
        row("other language keeps it", "Std", "french", "german", 2000);
    }

    void storedWidthYieldsToLanguage()
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
        QCOMPARE(bar->width(), (4 * (buttonWidth + 120) - 120) / tpp);
        QCOMPARE(button(bar.get(), "cmdHelp")->text(), buttonWidth == 1200 ? "&Hilfe" : "&Help");
    }

    void corruptBagIsLoggedAndSurvived()
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
        QCOMPARE(bar.ButtonHeight(), 315);
        QCOMPARE(bar.ButtonWidth(), 1080);
        QCOMPARE(bar.OKasClose(), false);
        QCOMPARE(bar.Language(), QStringLiteral("English"));
        QCOMPARE(visibleFromRight(&bar), (QStringList{"cmdCancel", "cmdOK"}));
        QCOMPARE(button(&bar, "cmdApply")->text(), QStringLiteral("&Preview"));
    }

    void propertiesByName_data()
    {
        QTest::addColumn<QString>("progId");
        QTest::addColumn<QString>("property");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("readBack");
        QTest::addColumn<int>("error"); // 0: taken; else logged and the old value kept
        auto row = [](const char *name, const char *kind, const char *property,
                      const QVariant &value, const QVariant &readBack, int error) {
            QTest::newRow(name) << QStringLiteral("zelCtrl.zel%1Buttons").arg(kind)
                                << QString(property) << value << readBack << error;
        };
        row("Language empty", "Std", "Language", "", "English", 0);
        row("ButtonWidth rounded", "Std", "ButtonWidth", 1500.4, 1500, 0);
        row("OKasClose text", "Std", "OKasClose", "True", true, 0);
        row("ButtonWidth not a number", "Std", "ButtonWidth", "abc", {}, 13);
        row("ButtonHeight negative", "Prp", "ButtonHeight", -1, {}, 380);
        row("ButtonWidth absurd", "Prp", "ButtonWidth", 2000000000, {}, 380);
        row("ButtonsVisible too big", "Prp", "ButtonsVisible", 1e12, {}, 6);
    }

    void propertiesByName()
    {
        QFETCH(QString, progId);
        QFETCH(QString, property);
        QFETCH(QVariant, value);
        QFETCH(QVariant, readBack);
        QFETCH(int, error);
        zelTestScope scope;

        std::unique_ptr<QObject> obj(zel::CreateObject(progId));
        auto *bar = qobject_cast<zelButtonBar *>(obj.get());
        QVERIFY(bar);
        QCOMPARE(QString::fromLatin1(bar->metaObject()->className()), progId.mid(8));
        const QVariant before = zel::GetProperty(bar, property);
        const QSize size = bar->size();
        QSignalSpy marks(bar, &zelButtonBar::PropertyChanged);
        zel::SetProperty(bar, property.toLower(), value);
        if (error) {
            QCOMPARE(zelLoggedErrors(progId.mid(8) + QLatin1Char('.') + property + " Let"), 1);
            QCOMPARE(zelCaptureLogger::errors.at(0).at(3).toInt(), error);
            QCOMPARE(zel::GetProperty(bar, property), before);
            QCOMPARE(bar->size(), size);
            QVERIFY(!bar->LayoutBusy());
            return;
        }
        QCOMPARE(zel::GetProperty(bar, property).toString(), readBack.toString());
        QCOMPARE(zelLoggedErrors(), 0);
        if (property != QLatin1String("Language"))
            QCOMPARE(marks.value(0).value(0).toString(), property);
    }

    void optionButtonsCarryTheHostsCaptionsAndPictures()
    {
        zelTestScope scope;
        QTemporaryDir dir;
        zelStdButtons bar;
        for (int i = 0; i < 4; ++i)
            zel::CallByName(&bar, QStringLiteral("SetOptionButtonCaption"),
                            {i, QString::number(i)});
        // A language switch leaves the host's captions alone.
        bar.SetLanguage(QStringLiteral("german"));
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(zel::CallByName(&bar, QStringLiteral("OptionButtonCaption"), {i}).toInt(), i);
            QCOMPARE(button(&bar, QStringLiteral("cmdOption%1").arg(i))->text(),
                     QString::number(i));
        }
        QCOMPARE(bar.OptionButtonCaption(-1), QString());
        bar.SetOptionButtonCaption(4, QStringLiteral("lost"));

        auto load = [&](int index, const QVariant &picture) {
            return zel::CallByName(&bar, QStringLiteral("LoadOptionButtonPicture"),
                                   {index, picture})
                .toBool();
        };
        QPixmap pm(16, 16);
        pm.fill(Qt::blue);
        QVERIFY(load(0, pm));
        QVERIFY(load(1, QImage(8, 8, QImage::Format_RGB32)));
        QVERIFY(!load(2, QPixmap()));
        QVERIFY(!load(4, pm));
        QVERIFY(!load(2, 42));
        QVERIFY(!load(2, QStringLiteral("/nonexistent/x.png")));
        bar.SetOptionButtonPicture(3, pictureFile(dir));
        // A broken file leaves the picture there; no file name takes it off.
        bar.SetOptionButtonPicture(3, pictureFile(dir, false));
        bar.SetOptionButtonPicture(1, QString());
        QList<bool> pictures;
        for (int i = 0; i < 4; ++i)
            pictures.append(!button(&bar, QStringLiteral("cmdOption%1").arg(i))->icon().isNull());
        QCOMPARE(pictures, (QList<bool>{true, false, false, true}));

        QStringList errors;
        for (const QVariantList &e : std::as_const(zelCaptureLogger::errors))
            errors.append(e.at(2).toString().section('.', 1) + ' ' + e.at(3).toString());
        QCOMPARE(errors,
                 (QStringList{"OptionButtonCaption Get 9", "OptionButtonCaption Let 9",
                              "LoadOptionButtonPicture 9", "LoadOptionButtonPicture 13",
                              "LoadOptionButtonPicture 53", "OptionButtonPicture Let 481"}));
        for (QPushButton *b : bar.findChildren<QPushButton *>())
            QVERIFY(b->text() != QLatin1String("lost"));
    }

    void dispatchIdsAndEventOrder()
    {
        // Published ids: properties count down from 0x68030006, methods up from 0x60030007.
        const QStringList properties{"Language",           "ButtonHeight",   "ButtonWidth",
                                     "ButtonsVisible",     "ButtonsEnabled", "OptionButtonCaption",
                                     "OptionButtonPicture"};
        const QStringList methods{"ChangeEnabledButtons", "ChangeVisibleButtons",
                                  "LoadOptionButtonPicture", "FocusOnButton"};
        auto dispId = [](const QString &member) {
            const QMetaObject &mo = zelPrpButtons::staticMetaObject;
            const int i = mo.indexOfClassInfo(("DispId." + member).toLatin1().constData());
            return i < 0 ? QString() : QString::fromLatin1(mo.classInfo(i).value());
        };
        for (int i = 0; i < properties.size(); ++i)
            QCOMPARE(dispId(properties.at(i)), QStringLiteral("0x%1").arg(0x68030006 - i, 0, 16));
        for (int i = 0; i < methods.size(); ++i)
            QCOMPARE(dispId(methods.at(i)), QStringLiteral("0x%1").arg(0x60030007 + i, 0, 16));

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
};

QTEST_MAIN(tst_ButtonBars)
#include "tst_buttonbars.moc"
