#include "buttons/zelPrpButtons.h"
#include "buttons/zelStdButtons.h"
#include "platform/zelLateBinding.h"

#include "zelFakePlatform.h"

#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>

#include <memory>

namespace {

const int tpp = 15; // twips per pixel on the fake platform

// A widget's pixels cover the twips they stand for, to the nearest pixel.
bool coversTwips(const QRect &px, const QRect &twips, double tpp)
{
    const auto near = [tpp](int p, int t) { return std::abs(p * tpp - t) <= tpp / 2; };
    return near(px.x(), twips.x()) && near(px.y(), twips.y()) && near(px.width(), twips.width()) &&
           near(px.height(), twips.height());
}

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
        QTest::addColumn<QRect>("rightmost"); // twips
        auto row = [](const char *name, const char *kind, const char *language, qint32 visible,
                      int width, const QStringList &fromRight, const QRect &rightmost) {
            QTest::newRow(name) << QString(kind) << QString(language) << visible << width
                                << fromRight << rightmost;
        };
        row("Std OK Cancel", "Std", "English", ZEL_StdButton_OKCancel, 2280, {"cmdCancel", "cmdOK"},
            QRect(1200, 0, 1080, 315));
        row("Std all eight German", "Std", "Deutsch", 255, 10440,
            {"cmdHelp", "cmdApply", "cmdCancel", "cmdOK", "cmdOption0", "cmdOption1", "cmdOption2",
             "cmdOption3"},
            QRect(9240, 0, 1200, 315));
        row("Prp defaults", "Prp", "English", ZEL_PrpButton_All, 4680,
            {"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"}, QRect(3600, 0, 1080, 315));
        row("Prp option 3 and Help", "Prp", "English", ZEL_PrpButton_Option3 | ZEL_PrpButton_Help,
            2280, {"cmdHelp", "cmdOption3"}, QRect(1200, 0, 1080, 315));
        row("Std gaps in the set", "Std", "", 1 | 4 | 32, 3480,
            {"cmdHelp", "cmdCancel", "cmdOption1"}, QRect(2400, 0, 1080, 315));
        row("Prp -1 shows all eight", "Prp", "", -1, 9480,
            {"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd", "cmdOption0", "cmdOption1",
             "cmdOption2", "cmdOption3"},
            QRect(8400, 0, 1080, 315));
        row("Prp bits above 128 ignored", "Prp", "", 256 | 512 | 8, 1080, {"cmdAdd"},
            QRect(0, 0, 1080, 315));
    }

    void barSizesItselfAndPlacesButtons()
    {
        QFETCH(QString, kind);
        QFETCH(QString, language);
        QFETCH(qint32, visible);
        QFETCH(int, widthTwips);
        QFETCH(QStringList, fromRight);
        QFETCH(QRect, rightmost);
        // At 96 and at 144 dots per inch.
        for (const double twipsPerPixel : {15.0, 10.0}) {
            zelTestScope scope;
            scope.fake().twipsPerPixel = twipsPerPixel;
            auto bar = makeBar(kind);
            bar->SetLanguage(language);
            bar->SetButtonsVisible(visible);
            QVERIFY(coversTwips(bar->rect(), QRect(0, 0, widthTwips, 315), twipsPerPixel));
            QCOMPARE(visibleFromRight(bar.get()), fromRight);
            QVERIFY(coversTwips(button(bar.get(), fromRight.at(0))->geometry(), rightmost,
                                twipsPerPixel));
            QCOMPARE(button(bar.get(), fromRight.constLast())->x(), 0);
            QCOMPARE(zelLoggedErrors(), 0);
        }
    }

    void captionsFollowLanguage_data()
    {
        QTest::addColumn<QString>("kind");
        // In turn: "Name=value" sets that property by name, anything else the language.
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QStringList>("captions"); // Help, bit 2, bit 4, bit 8
        QTest::addColumn<int>("buttonWidth");
        QTest::addColumn<int>("barWidth");      // twips, four buttons
        QTest::addColumn<QStringList>("marks"); // the property store's marks

        for (const QString &kind : {QStringLiteral("Std"), QStringLiteral("Prp")}) {
            const bool s = kind == QLatin1String("Std");
            const QStringList en = s ? QStringList{"&Help", "&Apply", "Cancel", "OK"}
                                     : QStringList{"&Help", "&Properties", "Remove", "New"};
            const QStringList de = s ? QStringList{"&Hilfe", "&Ausführen", "Abbruch", "Ok"}
                                     : QStringList{"&Hilfe", "&Ausführen", "Abbruch", "New"};
            auto row = [&](const char *name, const QStringList &steps) -> QTestData & {
                return QTest::addRow("%s %s", qPrintable(kind), name) << kind << steps;
            };
            const QStringList none;
            row("new bar", {}) << "English" << en << 1080 << 4680 << none;
            row("GERMAN after german", {"german", "GERMAN"})
                << "german" << de << 1200 << 5160 << none;
            row("french after german", {"german", "french"})
                << "french" << de << 1200 << 5160 << none;
            row("empty after german", {"german", ""}) << "English" << en << 1080 << 4680 << none;
            row("Deutsch after french", {"french", "Deutsch"})
                << "Deutsch" << de << 1200 << 5160 << none;
            row("german with a blank", {"german "}) << "german " << en << 1080 << 4680 << none;
            // The same language again leaves a width the host set since.
            row("german again keeps width", {"german", "ButtonWidth=1500", "GERMAN"})
                << "german" << de << 1500 << 6360 << QStringList{"ButtonWidth"};
        }
        // The switches of the standard bar, set before and after the language.
        const QStringList closeDe{"&Hilfe", "&Ausführen", "Abbruch", "Schließen"};
        const QStringList previewDe{"&Hilfe", "&Preview", "Abbruch", "Ok"};
        const QStringList bothEn{"&Help", "&Preview", "Cancel", "Close"};
        QTest::newRow("Std close, then german")
            << "Std" << QStringList{"OKasClose=true", "german"} << "german" << closeDe << 1200
            << 5160 << QStringList{"OKasClose"};
        QTest::newRow("Std german, then preview")
            << "Std" << QStringList{"german", "ApplyAsPreview=true"} << "german" << previewDe
            << 1200 << 5160 << QStringList{"ApplyAsPreview"};
        QTest::newRow("Std close set twice")
            << "Std" << QStringList{"OKasClose=true", "ApplyAsPreview=true", "OKasClose=true"}
            << "English" << bothEn << 1080 << 4680 << QStringList{"OKasClose", "ApplyAsPreview"};
    }

    void captionsFollowLanguage()
    {
        QFETCH(QString, kind);
        QFETCH(QStringList, steps);
        QFETCH(QString, stored);
        QFETCH(QStringList, captions);
        QFETCH(int, buttonWidth);
        QFETCH(int, barWidth);
        QFETCH(QStringList, marks);
        zelTestScope scope;

        auto bar = makeBar(kind);
        QStringList marked;
        QObject::connect(bar.get(), &zelButtonBar::PropertyChanged,
                         [&marked](const QString &name) { marked.append(name); });
        for (const QString &step : steps) {
            if (step.contains(QLatin1Char('=')))
                QVERIFY(zel::SetProperty(bar.get(), step.section('=', 0, 0), step.section('=', 1)));
            else
                bar->SetLanguage(step);
        }
        QCOMPARE(bar->Language(), stored);
        QStringList shown;
        for (const QString &name : buttonsByBit(kind).first(4))
            shown.append(button(bar.get(), name)->text());
        QCOMPARE(shown, captions);
        QCOMPARE(bar->ButtonWidth(), buttonWidth);
        QCOMPARE(bar->width(), barWidth / tpp);
        // Neither the language nor the width it brings is marked.
        QCOMPARE(marked, marks);
        QCOMPARE(zelLoggedErrors(), 0);
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
        QTest::addColumn<QStringList>("buttons"); // shown or enabled, by bit
        auto row = [](const char *name, const char *kind, const char *method, qint32 start,
                      const QVariant &eButton, bool on, qint32 expected,
                      const QStringList &buttons) {
            QTest::newRow(name) << QString(kind) << QString(method) << start << eButton << on
                                << expected << buttons;
        };
        const char *enabled = "ChangeEnabledButtons";
        const char *visible = "ChangeVisibleButtons";
        row("Std Apply disabled", "Std", enabled, 15, QVariant::fromValue(ZEL_StdButton_Apply),
            false, 13, {"cmdHelp", "cmdCancel", "cmdOK"});
        row("Std options enabled", "Std", enabled, 0, 16 | 64, true, 80,
            {"cmdOption0", "cmdOption2"});
        row("Std Help hidden", "Std", "changevisiblebuttons", 15, 1, false, 14,
            {"cmdApply", "cmdCancel", "cmdOK"});
        row("Std Apply enabled again", "Std", enabled, 15, 2, true, 15,
            {"cmdHelp", "cmdApply", "cmdCancel", "cmdOK"});
        row("Prp AddRemove hidden", "Prp", visible, 15, "ZEL_PrpButton_AddRemove", false, 3,
            {"cmdHelp", "cmdProperties"});
        row("Prp All shown", "Prp", visible, 16, QVariant::fromValue(ZEL_PrpButton_All), true, 31,
            {"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd", "cmdOption0"});
    }

    void changeBitsKeepsOtherBits()
    {
        QFETCH(QString, kind);
        QFETCH(QString, method);
        QFETCH(qint32, start);
        QFETCH(QVariant, eButton);
        QFETCH(bool, on);
        QFETCH(qint32, expected);
        QFETCH(QStringList, buttons);
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
        // Marked once when the bits change, not at all when they stay.
        QCOMPARE(marks.count(), expected == start ? 0 : 1);
        if (!marks.isEmpty())
            QCOMPARE(marks.at(0).at(0).toString(),
                     visibleSet ? "ButtonsVisible" : "ButtonsEnabled");
        QStringList shown;
        for (const QString &name : buttonsByBit(kind)) {
            QPushButton *b = button(bar.get(), name);
            if (visibleSet ? b->isVisibleTo(bar.get()) : b->isEnabled())
                shown.append(name);
        }
        QCOMPARE(shown, buttons);
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

    void storedWidthYieldsToLanguage_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("language"); // "-" = not stored
        QTest::addColumn<int>("buttonWidth");
        QTest::addColumn<int>("barWidth"); // twips, four buttons
        QTest::addColumn<QString>("help");
        auto row = [](const char *name, const char *kind, const char *language, int buttonWidth,
                      int barWidth, const char *help) {
            QTest::newRow(name) << QString(kind) << QString(language) << buttonWidth << barWidth
                                << QString::fromUtf8(help);
        };
        row("German", "Std", "german", 1200, 5160, "&Hilfe");
        row("no language", "Std", "-", 1080, 4680, "&Help");
        row("ENGLISH", "Prp", "ENGLISH", 1080, 4680, "&Help");
        row("other language keeps it", "Prp", "french", 2000, 8360, "&Help");
    }

    // A form loads into a new bar: the language, read after the stored width,
    // decides the width.
    void storedWidthYieldsToLanguage()
    {
        QFETCH(QString, kind);
        QFETCH(QString, language);
        QFETCH(int, buttonWidth);
        QFETCH(int, barWidth);
        QFETCH(QString, help);
        zelTestScope scope;

        zelMemoryPropertyBag bag;
        bag.SetValue(QStringLiteral("ButtonWidth"), 2000);
        if (language != QLatin1String("-"))
            bag.SetValue(QStringLiteral("Language"), language);
        auto bar = makeBar(kind);
        QSignalSpy marks(bar.get(), &zelButtonBar::PropertyChanged);
        bar->ReadProperties(bag);
        QCOMPARE(bar->ButtonWidth(), buttonWidth);
        QCOMPARE(bar->BarLayout().Size.width(), barWidth);
        QCOMPARE(button(bar.get(), "cmdHelp")->text(), help);
        QCOMPARE(marks.count(), 1); // the stored width
        QCOMPARE(zelLoggedErrors(), 0);
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
        const QString star = dir.filePath("star.png"), broken = dir.filePath("broken.png");
        QVERIFY(QImage(16, 16, QImage::Format_ARGB32).save(star));
        QFile(star).copy(broken);
        QFile(broken).resize(20);
        bar.SetOptionButtonPicture(3, star);
        // A broken file leaves the picture there; no file name takes it off.
        bar.SetOptionButtonPicture(3, broken);
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
};

QTEST_MAIN(tst_ButtonBars)
#include "tst_buttonbars.moc"
