#include "zelFakePlatform.h"

#include "fields/zelColorPicker.h"
#include "platform/zelLateBinding.h"

#include <QFrame>
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

std::unique_ptr<zelColorPicker> makePicker()
{
    auto p = std::make_unique<zelColorPicker>();
    p->resize(40, 21);
    return p;
}

QWidget *swatch(zelColorPicker &p)
{
    return p.findChild<QWidget *>(QStringLiteral("Picture1"));
}

// What the swatch shows in its middle, away from its frame.
QColor shown(zelColorPicker &p)
{
    QWidget *s = swatch(p);
    const QImage image = s->grab().toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

} // namespace

class tst_ColorPicker : public QObject
{
    Q_OBJECT

private slots:
    void newPickerIsBlack();
    void swatchFillsTheControl();
    void disablingShowsButtonFaceAndKeepsColour_data();
    void disablingShowsButtonFaceAndKeepsColour();
    void acceptedDialogSetsColourAndClicks_data();
    void acceptedDialogSetsColourAndClicks();
    void cancelledDialogKeepsColourAndLogs();
    void keysOpenTheDialog_data();
    void keysOpenTheDialog();
    void mouseClickOpensTheDialog_data();
    void mouseClickOpensTheDialog();
    void persistence_data();
    void persistence();
    void corruptOrAbsurdColoursAreRefused_data();
    void corruptOrAbsurdColoursAreRefused();
    void unknownSystemColourShowsWindowBackground();
    void lateBound();
    void focusIsShown();
};

void tst_ColorPicker::newPickerIsBlack()
{
    zelTestScope scope;
    auto p = makePicker();
    QCOMPARE(p->BackColor(), 0u);
    QCOMPARE(shown(*p), QColor(Qt::black));
    QCOMPARE(swatch(*p)->palette().color(QPalette::Window), QColor(Qt::black));
    QVERIFY(p->focusPolicy() & Qt::TabFocus);
}

void tst_ColorPicker::swatchFillsTheControl()
{
    zelTestScope scope;
    auto p = makePicker();
    p->show();
    p->resize(77, 33);
    QCOMPARE(swatch(*p)->geometry(), QRect(0, 0, 77, 33));
}

void tst_ColorPicker::disablingShowsButtonFaceAndKeepsColour_data()
{
    QTest::addColumn<quint32>("colour");
    QTest::newRow("red") << quint32(0x0000FF);
    QTest::newRow("blue-grey") << quint32(0x806040);
    QTest::newRow("system window text") << zel::SysWindowText;
}

void tst_ColorPicker::disablingShowsButtonFaceAndKeepsColour()
{
    QFETCH(quint32, colour);
    zelTestScope scope;
    auto p = makePicker();
    p->SetBackColor(colour);
    QCOMPARE(shown(*p), zel::ToQColor(colour));
    p->SetEnabled(false);
    QCOMPARE(p->Enabled(), false);
    QCOMPARE(shown(*p), zel::ToQColor(zel::SysButtonFace));
    QCOMPARE(zel::GetProperty(p.get(), QStringLiteral("BackColor")).toUInt(), colour);
    p->SetEnabled(true);
    QCOMPARE(p->Enabled(), true);
    QCOMPARE(shown(*p), zel::ToQColor(colour));
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ColorPicker::acceptedDialogSetsColourAndClicks_data()
{
    QTest::addColumn<quint32>("before");
    QTest::addColumn<quint32>("answer");
    QTest::newRow("new colour") << quint32(0) << quint32(0x00FF00);
    QTest::newRow("same colour") << quint32(0x123456) << quint32(0x123456);
    QTest::newRow("from a system colour") << zel::SysButtonFace << quint32(0xFFFFFF);
}

void tst_ColorPicker::acceptedDialogSetsColourAndClicks()
{
    QFETCH(quint32, before);
    QFETCH(quint32, answer);
    zelTestScope scope;
    scope.fake().colorDialogAnswer = answer;
    auto p = makePicker();
    p->SetBackColor(before);
    quint32 colourAtClick = 0xFFFFFFFF;
    int clicks = 0;
    connect(p.get(), &zelColorPicker::Click, p.get(), [&] {
        ++clicks;
        colourAtClick = p->BackColor();
    });
    QSignalSpy marked(p.get(), &zelColorPicker::PropertyChanged);
    QTest::mouseClick(swatch(*p), Qt::LeftButton);
    QCOMPARE(scope.fake().colorDialogPresets, QList<quint32>({before}));
    QCOMPARE(clicks, 1);
    // The colour is in place when the host hears Click.
    QCOMPARE(colourAtClick, answer);
    QCOMPARE(p->BackColor(), answer);
    QCOMPARE(shown(*p), zel::ToQColor(answer));
    QCOMPARE(marked.count(), 1);
    QCOMPARE(marked.at(0).at(0).toString(), QStringLiteral("BackColor"));
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ColorPicker::cancelledDialogKeepsColourAndLogs()
{
    zelTestScope scope;
    scope.fake().colorDialogAccepts = false;
    scope.fake().colorDialogAnswer = 0x00FF00;
    auto p = makePicker();
    p->SetBackColor(0x0000FF);
    QSignalSpy clicks(p.get(), &zelColorPicker::Click);
    QTest::mouseClick(swatch(*p), Qt::LeftButton);
    QCOMPARE(scope.fake().colorDialogPresets.size(), 1);
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(p->BackColor(), 0x0000FFu);
    QCOMPARE(shown(*p), QColor(Qt::red));
    QCOMPARE(zelLoggedErrors(), 1);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelColorPicker.Picture1_Click")), 1);
    QCOMPARE(zelCaptureLogger::errors.at(0).at(3).toInt(), int(zelError::DialogCancelled));
    QCOMPARE(scope.fake().messages.size(), 0);
}

void tst_ColorPicker::keysOpenTheDialog_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("opens");
    QTest::newRow("space") << int(Qt::Key_Space) << true;
    QTest::newRow("return") << int(Qt::Key_Return) << true;
    QTest::newRow("keypad enter") << int(Qt::Key_Enter) << true;
    QTest::newRow("letter") << int(Qt::Key_A) << false;
    QTest::newRow("tab") << int(Qt::Key_Tab) << false;
}

void tst_ColorPicker::keysOpenTheDialog()
{
    QFETCH(int, key);
    QFETCH(bool, opens);
    zelTestScope scope;
    scope.fake().colorDialogAnswer = 0x336699;
    auto p = makePicker();
    p->SetBackColor(0x010203);
    QSignalSpy clicks(p.get(), &zelColorPicker::Click);
    QTest::keyClick(p.get(), Qt::Key(key));
    QCOMPARE(scope.fake().colorDialogPresets.size(), opens ? 1 : 0);
    QCOMPARE(clicks.count(), opens ? 1 : 0);
    QCOMPARE(p->BackColor(), opens ? 0x336699u : 0x010203u);
}

void tst_ColorPicker::mouseClickOpensTheDialog_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QPoint>("releaseAt");
    QTest::addColumn<bool>("opens");
    QTest::newRow("left click") << int(Qt::LeftButton) << QPoint(20, 10) << true;
    QTest::newRow("right click") << int(Qt::RightButton) << QPoint(20, 10) << false;
    QTest::newRow("released outside") << int(Qt::LeftButton) << QPoint(200, 10) << false;
}

void tst_ColorPicker::mouseClickOpensTheDialog()
{
    QFETCH(int, button);
    QFETCH(QPoint, releaseAt);
    QFETCH(bool, opens);
    zelTestScope scope;
    auto p = makePicker();
    QSignalSpy clicks(p.get(), &zelColorPicker::Click);
    QTest::mousePress(swatch(*p), Qt::MouseButton(button), {}, QPoint(20, 10));
    QTest::mouseRelease(swatch(*p), Qt::MouseButton(button), {}, releaseAt);
    QCOMPARE(clicks.count(), opens ? 1 : 0);
    QCOMPARE(scope.fake().colorDialogPresets.size(), opens ? 1 : 0);
}

void tst_ColorPicker::persistence_data()
{
    QTest::addColumn<QVariant>("written");
    QTest::addColumn<quint32>("colour");
    QTest::addColumn<bool>("stored");
    QTest::newRow("black is the default") << QVariant(0) << quint32(0) << false;
    QTest::newRow("plain colour") << QVariant(0x123456) << quint32(0x123456) << true;
    QTest::newRow("system colour") << QVariant(zel::SysButtonFace) << zel::SysButtonFace << true;
    QTest::newRow("classic negative system colour")
        << QVariant(qint32(-2147483633)) << zel::SysButtonFace << true;
    QTest::newRow("QColor") << QVariant(QColor(0x11, 0x22, 0x33)) << quint32(0x332211) << true;
}

void tst_ColorPicker::persistence()
{
    QFETCH(QVariant, written);
    QFETCH(quint32, colour);
    QFETCH(bool, stored);
    zelTestScope scope;
    auto p = makePicker();
    QVERIFY(zel::SetProperty(p.get(), QStringLiteral("BackColor"), written));
    p->SetEnabled(false); // not persisted
    QCOMPARE(p->BackColor(), colour);
    zelMemoryPropertyBag memory;
    zelJsonPropertyBag json;
    p->WriteProperties(memory);
    p->WriteProperties(json);
    QCOMPARE(memory.Contains(QStringLiteral("BackColor")), stored);
    QCOMPARE(memory.Count(), stored ? 1 : 0);
    for (zelPropertyBag *bag :
         {static_cast<zelPropertyBag *>(&memory), static_cast<zelPropertyBag *>(&json)}) {
        auto q = makePicker();
        q->SetBackColor(0x0000FF);
        q->ReadProperties(*bag);
        QCOMPARE(q->BackColor(), colour);
        QCOMPARE(q->Enabled(), true);
        QCOMPARE(shown(*q), zel::ToQColor(colour));
    }
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ColorPicker::corruptOrAbsurdColoursAreRefused_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(QStringLiteral("red"));
    QTest::newRow("high byte neither colour nor system") << QVariant(0x01000000);
    QTest::newRow("beyond 32 bits") << QVariant(1e12);
    QTest::newRow("below 32 bits") << QVariant(-1e12);
    QTest::newRow("list") << QVariant(QVariantList{1, 2});
    QTest::newRow("invalid QColor") << QVariant(QColor());
}

void tst_ColorPicker::corruptOrAbsurdColoursAreRefused()
{
    QFETCH(QVariant, value);
    zelTestScope scope;
    // By name.
    auto p = makePicker();
    p->SetBackColor(0x00AA00);
    zel::SetProperty(p.get(), QStringLiteral("BackColor"), value);
    QCOMPARE(p->BackColor(), 0x00AA00u);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelColorPicker.BackColor Let")), 1);
    // From a property bag: logged, and the picker loads on.
    zelMemoryPropertyBag bag;
    bag.SetValue(QStringLiteral("BackColor"), value);
    auto q = makePicker();
    q->ReadProperties(bag);
    QCOMPARE(q->BackColor(), 0u);
    QCOMPARE(zelLoggedErrors(), 2);
}

void tst_ColorPicker::unknownSystemColourShowsWindowBackground()
{
    zelTestScope scope;
    auto p = makePicker();
    p->SetBackColor(quint32(0x80000063));
    QCOMPARE(p->BackColor(), 0x80000063u);
    QCOMPARE(shown(*p), zel::ToQColor(zel::SysWindowBackground));
    scope.fake().colorDialogAnswer = 0x80000063;
    QTest::keyClick(p.get(), Qt::Key_Space);
    QCOMPARE(scope.fake().colorDialogPresets, QList<quint32>({0x80000063u}));
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_ColorPicker::lateBound()
{
    zelTestScope scope;
    std::unique_ptr<QObject> o(zel::CreateObject(QStringLiteral("zelCtrl.zelColorPicker")));
    QVERIFY(qobject_cast<zelColorPicker *>(o.get()));
    QVERIFY(zel::SetProperty(o.get(), QStringLiteral("BackColor"), 0x445566));
    QCOMPARE(zel::GetProperty(o.get(), QStringLiteral("BackColor")).toUInt(), 0x445566u);
    QVERIFY(zel::SetProperty(o.get(), QStringLiteral("Enabled"), false));
    QCOMPARE(zel::GetProperty(o.get(), QStringLiteral("Enabled")).toBool(), false);
    QVERIFY(zel::SetProperty(o.get(), QStringLiteral("Enabled"), "True"));
    QCOMPARE(zel::GetProperty(o.get(), QStringLiteral("Enabled")).toBool(), true);
    zel::SetProperty(o.get(), QStringLiteral("Enabled"), "maybe");
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelColorPicker.Enabled Let")), 1);
    QCOMPARE(zel::GetProperty(o.get(), QStringLiteral("Enabled")).toBool(), true);

    const QMetaObject &mo = zelColorPicker::staticMetaObject;
    const QList<QPair<const char *, const char *>> ids = {{"DispId.BackColor", "0x68030000"},
                                                          {"DispId.Enabled", "0x68030001"},
                                                          {"DispId.Click", "1"}};
    for (const auto &[key, id] : ids) {
        const int i = mo.indexOfClassInfo(key);
        QVERIFY2(i >= 0, key);
        QCOMPARE(QByteArray(mo.classInfo(i).value()), QByteArray(id));
    }
    QVERIFY(mo.indexOfSignal("Click()") >= 0);
}

void tst_ColorPicker::focusIsShown()
{
    zelTestScope scope;
    QWidget window;
    auto *p = new zelColorPicker(&window);
    auto *other = new QFrame(&window);
    other->setFocusPolicy(Qt::StrongFocus);
    p->setGeometry(0, 0, 60, 30);
    other->setGeometry(0, 40, 60, 30);
    window.show();
    if (!QTest::qWaitForWindowActive(&window))
        QSKIP("the platform cannot activate windows");
    other->setFocus();
    QTRY_VERIFY(other->hasFocus());
    const QImage unfocused = swatch(*p)->grab().toImage();
    p->setFocus();
    QTRY_VERIFY(p->hasFocus());
    const QImage focused = swatch(*p)->grab().toImage();
    QVERIFY(focused != unfocused);
    // The colour itself still shows in the middle.
    QCOMPARE(focused.pixelColor(focused.width() / 2, focused.height() / 2), QColor(Qt::black));
}

QTEST_MAIN(tst_ColorPicker)
#include "tst_colorpicker.moc"
