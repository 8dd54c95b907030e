#include "zelFakePlatform.h"

#include "fields/zelColorPicker.h"
#include "platform/zelLateBinding.h"

#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

std::unique_ptr<zelColorPicker> makePicker(quint32 colour = 0)
{
    auto p = std::make_unique<zelColorPicker>();
    p->resize(40, 21);
    p->SetBackColor(colour);
    return p;
}

QWidget *swatch(zelColorPicker &p)
{
    return p.findChild<QWidget *>(QStringLiteral("Picture1"));
}

// What the swatch shows in its middle, away from its frame.
QColor shown(zelColorPicker &p)
{
    const QImage image = swatch(p)->grab().toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

} // namespace

class tst_ColorPicker : public QObject
{
    Q_OBJECT

private slots:
    void newPickerIsBlackAndFilledBySwatch()
    {
        zelTestScope scope;
        zelColorPicker p;
        QCOMPARE(p.BackColor(), 0u);
        QCOMPARE(shown(p), QColor(Qt::black));
        QVERIFY(p.focusPolicy() & Qt::TabFocus);
        p.show();
        p.resize(77, 33);
        QCOMPARE(swatch(p)->geometry(), QRect(0, 0, 77, 33));
    }

    void disablingShowsButtonFaceAndKeepsColour_data()
    {
        QTest::addColumn<quint32>("colour");
        QTest::newRow("blue-grey") << quint32(0x806040);
        QTest::newRow("system window text") << zel::SysWindowText;
    }

    void disablingShowsButtonFaceAndKeepsColour()
    {
        QFETCH(quint32, colour);
        zelTestScope scope;
        auto p = makePicker(colour);
        QCOMPARE(shown(*p), zel::ToQColor(colour));
        p->SetEnabled(false);
        QCOMPARE(p->Enabled(), false);
        QCOMPARE(shown(*p), zel::ToQColor(zel::SysButtonFace));
        QCOMPARE(zel::GetProperty(p.get(), QStringLiteral("BackColor")).toUInt(), colour);
        p->SetEnabled(true);
        QCOMPARE(shown(*p), zel::ToQColor(colour));
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void dialogAnswerSetsColourAndClicks_data()
    {
        QTest::addColumn<quint32>("before");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<quint32>("after");
        QTest::newRow("new colour") << quint32(0) << true << quint32(0x00FF00);
        QTest::newRow("same colour still clicks") << quint32(0x123456) << true << quint32(0x123456);
        QTest::newRow("from a system colour") << zel::SysButtonFace << true << quint32(0xFFFFFF);
        QTest::newRow("cancelled") << quint32(0x0000FF) << false << quint32(0x0000FF);
    }

    void dialogAnswerSetsColourAndClicks()
    {
        QFETCH(quint32, before);
        QFETCH(bool, accepted);
        QFETCH(quint32, after);
        zelTestScope scope;
        scope.fake().colorDialogAccepts = accepted;
        scope.fake().colorDialogAnswer = accepted ? after : 0x00FF00;
        auto p = makePicker(before);
        QList<quint32> colourAtClick;
        connect(p.get(), &zelColorPicker::Click, p.get(), [&] { colourAtClick << p->BackColor(); });
        QSignalSpy marked(p.get(), &zelColorPicker::PropertyChanged);
        QTest::mouseClick(swatch(*p), Qt::LeftButton);
        // The dialog starts from the colour shown, and the new colour is in
        // place when the host hears Click.
        QCOMPARE(scope.fake().colorDialogPresets, QList<quint32>({before}));
        QCOMPARE(colourAtClick, accepted ? QList<quint32>({after}) : QList<quint32>());
        QCOMPARE(p->BackColor(), after);
        QCOMPARE(shown(*p), zel::ToQColor(after));
        // The same colour again still clicks, but changes nothing to mark.
        QCOMPARE(marked.count(), accepted && after != before ? 1 : 0);
        // A cancel ends the click handler through its error path.
        QCOMPARE(zelLoggedErrors(), accepted ? 0 : 1);
        if (!accepted) {
            QCOMPARE(zelLoggedErrors(QStringLiteral("zelColorPicker.Picture1_Click")), 1);
            QCOMPARE(zelCaptureLogger::errors.at(0).at(3).toInt(), int(zelError::DialogCancelled));
        }
        QCOMPARE(scope.fake().messages.size(), 0);
    }

    void gesturesThatOpenTheDialog_data()
    {
        QTest::addColumn<int>("key");        // 0: a mouse click instead
        QTest::addColumn<int>("button");     // of the mouse
        QTest::addColumn<QPoint>("release"); // where the mouse is let go
        QTest::addColumn<bool>("opens");
        const QPoint inside(20, 10);
        QTest::newRow("Space") << int(Qt::Key_Space) << 0 << inside << true;
        QTest::newRow("Return") << int(Qt::Key_Return) << 0 << inside << true;
        QTest::newRow("a letter") << int(Qt::Key_A) << 0 << inside << false;
        QTest::newRow("left click") << 0 << int(Qt::LeftButton) << inside << true;
        QTest::newRow("right click") << 0 << int(Qt::RightButton) << inside << false;
        QTest::newRow("released outside") << 0 << int(Qt::LeftButton) << QPoint(200, 10) << false;
    }

    void gesturesThatOpenTheDialog()
    {
        QFETCH(int, key);
        QFETCH(int, button);
        QFETCH(QPoint, release);
        QFETCH(bool, opens);
        zelTestScope scope;
        scope.fake().colorDialogAnswer = 0x336699;
        auto p = makePicker(0x010203);
        QSignalSpy clicks(p.get(), &zelColorPicker::Click);
        if (key) {
            QTest::keyClick(p.get(), Qt::Key(key));
        } else {
            QTest::mousePress(swatch(*p), Qt::MouseButton(button), {}, QPoint(20, 10));
            QTest::mouseRelease(swatch(*p), Qt::MouseButton(button), {}, release);
        }
        QCOMPARE(scope.fake().colorDialogPresets.size(), opens ? 1 : 0);
        QCOMPARE(clicks.count(), opens ? 1 : 0);
        QCOMPARE(p->BackColor(), opens ? 0x336699u : 0x010203u);
    }

    void focusIsShown()
    {
        zelTestScope scope;
        QWidget window;
        auto *p = new zelColorPicker(&window);
        p->setGeometry(0, 0, 60, 30);
        const QImage unfocused = swatch(*p)->grab().toImage();
        QVERIFY(zelShowActive(window));
        p->setFocus();
        QTRY_VERIFY(p->hasFocus());
        const QImage focused = swatch(*p)->grab().toImage();
        QCOMPARE(focused.size(), unfocused.size());
        QVERIFY(focused != unfocused);
        // The colour itself still shows in the middle.
        QCOMPARE(focused.pixelColor(focused.width() / 2, focused.height() / 2), QColor(Qt::black));
    }
};

QTEST_MAIN(tst_ColorPicker)
#include "tst_colorpicker.moc"
