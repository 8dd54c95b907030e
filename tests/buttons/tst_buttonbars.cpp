#include "buttons/zelPrpButtons.h"
#include "buttons/zelStdButtons.h"
#include "platform/zelLateBinding.h"
#include "zelTestData.h"

#include "zelFakePlatform.h"

#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QMetaMethod>
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
    QMap<int, QString> byLeftEdge; // two at one place leave one name out
    for (QPushButton *b : bar->findChildren<QPushButton *>())
        if (b->isVisibleTo(bar))
            byLeftEdge.insert(-b->x(), b->objectName());
    return byLeftEdge.values();
}

// Clicks the buttons in turn; answers the bar's events as "Name" or
// "Name(argument)", in the order raised.
QStringList clickEach(zelButtonBar *bar, const QStringList &buttons)
{
    const QMetaObject *mo = bar->metaObject();
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (int i = QWidget::staticMetaObject.methodCount(); i < mo->methodCount(); ++i)
        if (mo->method(i).methodType() == QMetaMethod::Signal)
            spies.push_back(std::make_unique<QSignalSpy>(bar, mo->method(i)));
    QStringList raised;
    for (const QString &name : buttons) {
        QTest::mouseClick(button(bar, name), Qt::LeftButton);
        for (const auto &spy : spies) {
            for (const QVariantList &args : std::as_const(*spy))
                raised << QString::fromLatin1(spy->signal()).section('(', 0, 0) +
                              (args.isEmpty() ? QString() : '(' + args[0].toString() + ')');
            spy->clear();
        }
    }
    return raised;
}

} // namespace

class tst_ButtonBars : public QObject
{
    Q_OBJECT

private slots:
    void barSizesItselfAndPlacesButtons_data()
    {
        // rightmost: twips, its left edge and width given
        zelColumns<QString, QString, qint32, int, QStringList, QRect>(
            {"kind", "language", "visible", "widthTwips", "fromRight", "rightmost"});
        auto row = [](const char *name, const char *language, qint32 visible, int width,
                      const QStringList &fromRight, int rightLeft, int rightWidth) {
            QTest::newRow(name) << QString(name).section(' ', 0, 0) << QString(language) << visible
                                << width << fromRight << QRect(rightLeft, 0, rightWidth, 315);
        };
        row("Std OK Cancel", "English", ZEL_StdButton_OKCancel, 2280, {"cmdCancel", "cmdOK"}, 1200,
            1080);
        row("Std all eight German", "Deutsch", 255, 10440, buttonsByBit("Std"), 9240, 1200);
        row("Prp defaults", "English", ZEL_PrpButton_All, 4680,
            {"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"}, 3600, 1080);
        row("Prp option 3 and Help", "English", ZEL_PrpButton_Option3 | ZEL_PrpButton_Help, 2280,
            {"cmdHelp", "cmdOption3"}, 1200, 1080);
        row("Std gaps in the set", "", 1 | 4 | 32, 3480, {"cmdHelp", "cmdCancel", "cmdOption1"},
            2400, 1080);
        row("Prp -1 shows all eight", "", -1, 9480, buttonsByBit("Prp"), 8400, 1080);
        row("Prp bits above 128 ignored", "", 256 | 512 | 8, 1080, {"cmdAdd"}, 0, 1080);
    }

    void barSizesItselfAndPlacesButtons()
    {
        const auto [kind, language, visible, widthTwips, fromRight, rightmost] =
            zelFetch<QString, QString, qint32, int, QStringList, QRect>(
                {"kind", "language", "visible", "widthTwips", "fromRight", "rightmost"});
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
        // In turn: "Name=value" sets that property by name, "load Name=value ..."
        // reads a form's store into the bar, anything else sets the language.
        // captions: Help, bit 2, bit 4, bit 8
        // barWidth: twips, four buttons
        // marks: the property store's marks
        zelColumns<QStringList, QString, QStringList, int, int, QStringList>(
            {"steps", "stored", "captions", "buttonWidth", "barWidth", "marks"});

        for (const QString kind : {"Std", "Prp"}) {
            const bool s = kind == QLatin1String("Std");
            const QStringList en = s ? QStringList{"&Help", "&Apply", "Cancel", "OK"}
                                     : QStringList{"&Help", "&Properties", "Remove", "New"};
            const QStringList de = s ? QStringList{"&Hilfe", "&Ausführen", "Abbruch", "Ok"}
                                     : QStringList{"&Hilfe", "&Ausführen", "Abbruch", "New"};
            // English or German captions at their languages' default width.
            auto row = [&](const char *name, const QStringList &steps, const char *stored,
                           bool german, const QStringList &marks = {}) {
                QTest::addRow("%s %s", qPrintable(kind), name)
                    << kind << steps << QString(stored) << (german ? de : en)
                    << (german ? 1200 : 1080) << (german ? 5160 : 4680) << marks;
            };
            row("new bar", {}, "English", false);
            row("GERMAN after german", {"german", "GERMAN"}, "german", true);
            row("french after german", {"german", "french"}, "french", true);
            row("empty after german", {"german", ""}, "English", false);
            row("Deutsch after french", {"french", "Deutsch"}, "Deutsch", true);
            row("german with a blank", {"german "}, "german ", false);
            // A form loads: the language, read after the stored width, decides it.
            const QStringList width{"ButtonWidth"};
            row("loads German", {"load ButtonWidth=2000 Language=german"}, "german", true, width);
            row("loads no language", {"load ButtonWidth=2000"}, "English", false, width);
            row("loads ENGLISH", {"load ButtonWidth=2000 Language=ENGLISH"}, "ENGLISH", false,
                width);
            // A width the host set since stays: the same language again, or
            // one the bar does not know.
            QTest::addRow("%s german again keeps width", qPrintable(kind))
                << kind << QStringList{"german", "ButtonWidth=1500", "GERMAN"} << "german" << de
                << 1500 << 6360 << width;
            QTest::addRow("%s loads another language", qPrintable(kind))
                << kind << QStringList{"load ButtonWidth=2000 Language=french"} << "french" << en
                << 2000 << 8360 << width;
        }
        auto row = [](const char *name, const QStringList &steps, const char *stored,
                      const QStringList &captions, int buttonWidth, int barWidth,
                      const QStringList &marks) {
            QTest::newRow(name) << QString(name).section(' ', 0, 0) << steps << QString(stored)
                                << captions << buttonWidth << barWidth << marks;
        };
        // A hidden bar keeps the short caption until its button shows.
        const QStringList hidden{"ButtonsVisible=0", "german", "english"};
        row("Prp hidden, german, english", hidden, "english", {"&Help", "&Props", "Remove", "New"},
            1080, 0, {"ButtonsVisible"});
        row("Prp hidden, then Properties shown", hidden + QStringList{"ButtonsVisible=2"},
            "english", {"&Help", "&Properties", "Remove", "New"}, 1080, 1080,
            {"ButtonsVisible", "ButtonsVisible"});
        // The switches of the standard bar, set before and after the language.
        row("Std close, then german", {"OKasClose=true", "german"}, "german",
            {"&Hilfe", "&Ausführen", "Abbruch", "Schließen"}, 1200, 5160, {"OKasClose"});
        row("Std german, then preview", {"german", "ApplyAsPreview=true"}, "german",
            {"&Hilfe", "&Preview", "Abbruch", "Ok"}, 1200, 5160, {"ApplyAsPreview"});
        row("Std close set twice", {"OKasClose=true", "ApplyAsPreview=true", "OKasClose=true"},
            "English", {"&Help", "&Preview", "Cancel", "Close"}, 1080, 4680,
            {"OKasClose", "ApplyAsPreview"});
    }

    void captionsFollowLanguage()
    {
        const auto [kind, steps, barWidth] =
            zelFetch<QString, QStringList, int>({"kind", "steps", "barWidth"});
        zelTestScope scope;

        auto bar = makeBar(kind);
        QStringList marked;
        QObject::connect(bar.get(), &zelButtonBar::PropertyChanged,
                         [&marked](const QString &name) { marked.append(name); });
        for (const QString &step : steps) {
            if (step.startsWith(QLatin1String("load "))) {
                zelMemoryPropertyBag bag;
                for (const QString &kv : step.mid(5).split(' ')) {
                    bool number = false;
                    const int n = kv.section('=', 1).toInt(&number);
                    bag.SetValue(kv.section('=', 0, 0), number ? QVariant(n) : kv.section('=', 1));
                }
                bar->ReadProperties(bag);
            } else if (step.contains(QLatin1Char('=')))
                QVERIFY(zel::SetProperty(bar.get(), step.section('=', 0, 0), step.section('=', 1)));
            else
                bar->SetLanguage(step);
        }
        QTEST(bar->Language(), "stored");
        QStringList shown;
        for (const QString &name : buttonsByBit(kind).first(4))
            shown.append(button(bar.get(), name)->text());
        QTEST(shown, "captions");
        QTEST(bar->ButtonWidth(), "buttonWidth");
        QVERIFY(coversTwips(bar->rect(), QRect(0, 0, barWidth, barWidth ? 315 : 0), tpp));
        // Neither the language nor the width it brings is marked.
        QTEST(marked, "marks");
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void changeBitsKeepsOtherBits_data()
    {
        // eButton: by number, enumeration value or member name
        zelColumns<QString, QString, qint32, QVariant, bool, qint32>(
            {"kind", "method", "start", "eButton", "on", "expected"});
        auto row = [](const char *name, const char *method, qint32 start, const QVariant &eButton,
                      bool on, qint32 expected) {
            QTest::newRow(name) << QString(name).section(' ', 0, 0) << QString(method) << start
                                << eButton << on << expected;
        };
        const char *enabled = "ChangeEnabledButtons";
        const char *visible = "ChangeVisibleButtons";
        row("Std Apply disabled", enabled, 15, QVariant::fromValue(ZEL_StdButton_Apply), false, 13);
        row("Std options enabled", enabled, 0, 16 | 64, true, 80);
        row("Std Help hidden", "changevisiblebuttons", 15, 1, false, 14);
        row("Std Apply enabled again", enabled, 15, 2, true, 15);
        row("Prp AddRemove hidden", visible, 15, "ZEL_PrpButton_AddRemove", false, 3);
        row("Prp All shown", visible, 16, QVariant::fromValue(ZEL_PrpButton_All), true, 31);
    }

    void changeBitsKeepsOtherBits()
    {
        const auto [kind, method, start, eButton, on, expected] =
            zelFetch<QString, QString, qint32, QVariant, bool, qint32>(
                {"kind", "method", "start", "eButton", "on", "expected"});
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
        // Each button shown or enabled as its bit says.
        QList<bool> shown, bits;
        for (int bit = 0; bit < 8; ++bit) {
            QPushButton *b = button(bar.get(), buttonsByBit(kind).at(bit));
            shown << (visibleSet ? b->isVisibleTo(bar.get()) : b->isEnabled());
            bits << bool(expected & (1 << bit));
        }
        QCOMPARE(shown, bits);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void focusOnButtonTakesSingleValuesOnly_data()
    {
        // focused: "" = the focus stays where it was
        zelColumns<qint32, QString>({"eButton", "focused"});

        QTest::newRow("Add") << qint32(ZEL_PrpButton_Add) << "cmdAdd";
        QTest::newRow("Props") << qint32(ZEL_PrpButton_Props) << "cmdProperties";
        QTest::newRow("Option2") << qint32(ZEL_PrpButton_Option2) << "cmdOption2";
        QTest::newRow("Help") << qint32(ZEL_PrpButton_Help) << "";
        QTest::newRow("AddRemove") << qint32(ZEL_PrpButton_AddRemove) << "";
    }

    void focusOnButtonTakesSingleValuesOnly()
    {
        const auto [eButton, focused] = zelFetch<qint32, QString>({"eButton", "focused"});
        zelTestScope scope;

        QWidget window;
        auto *edit = new QLineEdit(&window);
        auto *bar = new zelPrpButtons(&window);
        bar->SetButtonsVisible(255);
        bar->SetButtonsEnabled(255);
        edit->setFocus();
        bool ok = false;
        zel::CallByName(bar, "FocusOnButton", {eButton}, &ok);
        QVERIFY(ok);
        QWidget *expected = focused.isEmpty() ? static_cast<QWidget *>(edit) : button(bar, focused);
        QCOMPARE(window.focusWidget(), expected);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void everyButtonRaisesItsEvent_data()
    {
        // events: clicking the buttons by bit
        zelColumns<QString, QStringList>({"kind", "events"});

        const QStringList options{"OptionButton(0)", "OptionButton(1)", "OptionButton(2)",
                                  "OptionButton(3)"};
        QTest::newRow("Std") << "Std" << QStringList{"Help", "Apply", "Cancel", "OK"} + options;
        QTest::newRow("Prp") << "Prp"
                             << QStringList{"Help", "Properties", "Remove", "Add"} + options;
    }

    void everyButtonRaisesItsEvent()
    {
        const auto [kind, events] = zelFetch<QString, QStringList>({"kind", "events"});
        zelTestScope scope;

        auto bar = makeBar(kind);
        // Option buttons are shown and enabled only when the host asks for them.
        bar->SetButtonsVisible(255);
        bar->SetButtonsEnabled(255);
        bar->SetLanguage("german");
        // Switched captions raise the buttons' own events all the same.
        if (auto *s = qobject_cast<zelStdButtons *>(bar.get())) {
            s->SetOKasClose(true);
            s->SetApplyAsPreview(true);
        }
        QCOMPARE(clickEach(bar.get(), buttonsByBit(kind)), events);
    }

    void optionButtonsCarryTheHostsCaptionsAndPictures()
    {
        zelTestScope scope;
        QTemporaryDir dir;
        zelStdButtons bar;
        for (int i = 0; i < 4; ++i)
            zel::CallByName(&bar, "SetOptionButtonCaption", {i, QString::number(i)});
        // A language switch leaves the host's captions alone.
        bar.SetLanguage("german");
        QStringList captions; // as the bar answers, then as its button shows
        for (int i = 0; i < 4; ++i)
            captions << zel::CallByName(&bar, "OptionButtonCaption", {i}).toString() +
                            button(&bar, QStringLiteral("cmdOption%1").arg(i))->text();
        QCOMPARE(captions, (QStringList{"00", "11", "22", "33"}));
        QCOMPARE(bar.OptionButtonCaption(-1), QString());
        bar.SetOptionButtonCaption(4, "lost");

        auto load = [&](int index, const QVariant &picture) {
            return zel::CallByName(&bar, "LoadOptionButtonPicture", {index, picture}).toBool();
        };
        QPixmap pm(16, 16);
        pm.fill(Qt::blue);
        // In order: a braced list's elements are evaluated left to right.
        QCOMPARE((QList<bool>{load(0, pm), load(1, QImage(8, 8, QImage::Format_RGB32)),
                              load(2, QPixmap()), load(4, pm), load(2, 42),
                              load(2, "/nonexistent/x.png")}),
                 (QList<bool>{true, true, false, false, false, false}));
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
