// The input box: what a user can type, what the host reads and writes, the
// messages it shows, what it persists, and its late-bound surface.

#include "fields/zelInputBox.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPropertyBag.h"
#include "zelFakePlatform.h"

#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

namespace {

QLineEdit *input(zelInputBox &box)
{
    return box.findChild<QLineEdit *>(QStringLiteral("txtInput"));
}

} // namespace

class tst_InputBox : public QObject
{
    Q_OBJECT

private slots:
    void typingFollowsDataType_data();
    void typingFollowsDataType();
    void hostCanChangeOrCancelKeys();
    void unsupportedDataTypeFallsBackToText_data();
    void unsupportedDataTypeFallsBackToText();
    void decimalsStayBelowMaxLength_data();
    void decimalsStayBelowMaxLength();
    void valueIsFormattedAndParsed_data();
    void valueIsFormattedAndParsed();
    void valueKeepsRangeWhenLimited();
    void leavingOutOfRangeExplainsAndKeepsFocus();
    void leavingReformatsNumbers();
    void changedOnlyForUserEdits();
    void focusSelectsWholeText();
    void enabledAndReadOnlyColours();
    void persistenceRoundTrip();
    void newControlStoresNothing();
    void corruptBagIsLoggedNotFatal();
    void everyPropertyByName_data();
    void everyPropertyByName();
    void wrongTypeByNameIsLoggedAndIgnored_data();
    void wrongTypeByNameIsLoggedAndIgnored();
    void eventsAndWidgetsByName();
};

void tst_InputBox::typingFollowsDataType_data()
{
    QTest::addColumn<int>("dataType");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("illegal");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("beeps");

    QTest::newRow("minus into empty number") << 5 << 2 << ""
                                             << "-"
                                             << "-" << 0;
    QTest::newRow("second minus refused") << 5 << 2 << ""
                                          << "-1-"
                                          << "-1" << 0;
    QTest::newRow("minus behind digit refused") << 5 << 2 << ""
                                                << "5-"
                                                << "5" << 0;
    QTest::newRow("point refused without decimals") << 3 << 0 << ""
                                                    << "1.5"
                                                    << "15" << 0;
    QTest::newRow("one point with decimals") << 5 << 2 << ""
                                             << "1.5."
                                             << "1.5" << 0;
    QTest::newRow("letters refused in numbers") << 5 << 2 << ""
                                                << "1a2b"
                                                << "12" << 0;
    QTest::newRow("blank refused in numbers") << 2 << 0 << ""
                                              << "1 2"
                                              << "12" << 0;
    QTest::newRow("text takes anything") << 8 << 0 << ""
                                         << "a-1.b."
                                         << "a-1.b." << 0;
    QTest::newRow("illegal chars in text") << 8 << 0 << "/\\"
                                           << "a/b\\c"
                                           << "abc" << 2;
    QTest::newRow("illegal chars in numbers") << 5 << 2 << "5"
                                              << "151"
                                              << "11" << 1;
}

void tst_InputBox::typingFollowsDataType()
{
    QFETCH(int, dataType);
    QFETCH(int, decimals);
    QFETCH(QString, illegal);
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    QFETCH(int, beeps);
    zelTestScope scope;
    zelInputBox box;
    box.SetDataType(dataType);
    box.SetDecimals(decimals);
    box.SetIllegalChars(illegal);
    box.SetText(QString());
    QTest::keyClicks(input(box), typed);
    QCOMPARE(box.Text(), expected);
    QCOMPARE(scope.fake().beeps, beeps);
}

void tst_InputBox::hostCanChangeOrCancelKeys()
{
    zelTestScope scope;
    zelInputBox box;
    box.SetDataType(8);
    QList<int> seen;
    connect(&box, &zelInputBox::KeyPress, this, [&](qint16 &key) {
        seen << key;
        if (key == 'a')
            key = 'b';
        else if (key == 'x')
            key = 0;
    });
    QTest::keyClicks(input(box), QStringLiteral("axc"));
    QCOMPARE(box.Text(), QStringLiteral("bc"));
    QCOMPARE(seen, (QList<int>{'a', 'x', 'c'}));

    // A changed key still goes through the field's own checks.
    box.SetDataType(5);
    box.SetText(QString());
    QTest::keyClicks(input(box), QStringLiteral("a"));
    QCOMPARE(box.Text(), QString()); // 'a' became 'b': not a digit
}

void tst_InputBox::unsupportedDataTypeFallsBackToText_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("stored");
    QTest::addColumn<bool>("message");
    QTest::newRow("date") << 7 << 8 << true;
    QTest::newRow("boolean") << 11 << 8 << true;
    QTest::newRow("integer") << 2 << 2 << false;
    QTest::newRow("single") << 4 << 4 << false;
    QTest::newRow("string") << 8 << 8 << false;
}

void tst_InputBox::unsupportedDataTypeFallsBackToText()
{
    QFETCH(int, type);
    QFETCH(int, stored);
    QFETCH(bool, message);
    zelTestScope scope;
    zelInputBox box;
    QSignalSpy changed(&box, &zelInputBox::Changed);
    QSignalSpy marked(&box, &zelInputBox::PropertyChanged);
    box.SetDataType(type);
    QCOMPARE(box.DataType(), stored);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(marked.value(0).value(0).toString(), QStringLiteral("DataType"));
    QCOMPARE(scope.fake().messages.size(), message ? 1 : 0);
    if (message) {
        QCOMPARE(scope.fake().messages[0].text,
                 QStringLiteral("This control now only supports numbers and strings"));
        QCOMPARE(scope.fake().messages[0].title, QStringLiteral("Limited Data Type"));
        QVERIFY(!box.IsNumeric());
    }
    QCOMPARE(bool(input(box)->alignment() & Qt::AlignRight), box.IsNumeric());
}

void tst_InputBox::decimalsStayBelowMaxLength_data()
{
    QTest::addColumn<int>("maxLength");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("expectedMax");
    QTest::addColumn<int>("expectedDecimals");
    QTest::newRow("8 with 5") << 5 << 8 << 5 << 4;
    QTest::newRow("5 with 5") << 5 << 5 << 5 << 4;
    QTest::newRow("4 with 5") << 5 << 4 << 5 << 4;
    QTest::newRow("0 means 255") << 0 << 3 << 255 << 3;
}

void tst_InputBox::decimalsStayBelowMaxLength()
{
    QFETCH(int, maxLength);
    QFETCH(int, decimals);
    zelTestScope scope;
    zelInputBox box;
    QSignalSpy marked(&box, &zelInputBox::PropertyChanged);
    box.SetMaxLength(maxLength);
    box.SetDecimals(decimals);
    QTEST(int(box.MaxLength()), "expectedMax");
    QTEST(int(box.Decimals()), "expectedDecimals");
    QCOMPARE(input(box)->maxLength(), box.MaxLength());
    // MaxLength is never marked changed; Decimals is.
    QCOMPARE(marked.size(), 1);
    QCOMPARE(marked[0][0].toString(), QStringLiteral("Decimals"));
}

void tst_InputBox::valueIsFormattedAndParsed_data()
{
    QTest::addColumn<int>("dataType");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QVariant>("set");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QVariant>("read");

    QTest::newRow("pi, 2 decimals") << 5 << 2 << QVariant(3.14159) << "3.14" << QVariant(3.14);
    QTest::newRow("whole") << 5 << 0 << QVariant(2.5) << "2" << QVariant(2.0);
    QTest::newRow("negative") << 5 << 3 << QVariant(-1.5) << "-1.500" << QVariant(-1.5);
    QTest::newRow("text number") << 5 << 1 << QVariant("7.25") << "7.2" << QVariant(7.2);
    QTest::newRow("integer type") << 2 << 0 << QVariant(41.6) << "42"
                                  << QVariant::fromValue(qint16(42));
    QTest::newRow("long type") << 3 << 0 << QVariant(100000) << "100000" << QVariant(100000);
    QTest::newRow("text field") << 8 << 0 << QVariant(12.5) << "12.5" << QVariant("12.5");
    QTest::newRow("text field bool") << 8 << 0 << QVariant(true) << "True" << QVariant("True");
}

void tst_InputBox::valueIsFormattedAndParsed()
{
    QFETCH(int, dataType);
    QFETCH(int, decimals);
    QFETCH(QVariant, set);
    QFETCH(QString, shown);
    QFETCH(QVariant, read);
    zelTestScope scope;
    zelInputBox box;
    box.SetDataType(dataType);
    box.SetDecimals(decimals);
    box.SetValue(set);
    QCOMPARE(box.Text(), shown);
    const QVariant v = box.Value();
    if (read.metaType().id() == QMetaType::QString)
        QCOMPARE(v.toString(), read.toString());
    else
        QCOMPARE(v.toDouble(), read.toDouble());
    QCOMPARE(zelCaptureLogger::errors.size(), 0);
}

void tst_InputBox::valueKeepsRangeWhenLimited()
{
    zelTestScope scope;
    zelInputBox box;
    box.SetText(QStringLiteral("12abc"));
    QCOMPARE(box.Value().toDouble(), 12.0);
    box.SetValueMin(1);
    box.SetValueMax(10);
    QCOMPARE(box.Value().toDouble(), 12.0); // not limited yet
    box.SetLimitValue(true);
    QCOMPARE(box.Value().toDouble(), 10.0);
    box.SetText(QStringLiteral("-3"));
    QCOMPARE(box.Value().toDouble(), 1.0);
    box.SetText(QString());
    QCOMPARE(box.Value().toDouble(), 1.0);
    // A 16-bit field reading a number beyond 16 bits logs the overflow.
    box.SetLimitValue(false);
    box.SetDataType(2);
    box.SetText(QStringLiteral("70000"));
    QVERIFY(!box.Value().isValid());
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelInputBox.Value Get")), 1);
}

void tst_InputBox::leavingOutOfRangeExplainsAndKeepsFocus()
{
    zelTestScope scope;
    QWidget form;
    auto *box = new zelInputBox(&form);
    auto *other = new QLineEdit(&form);
    other->move(0, 40);
    box->SetDecimals(2);
    box->SetValueMin(1);
    box->SetValueMax(10);
    box->SetLimitValue(true);
    form.show();
    QApplication::setActiveWindow(&form);
    QVERIFY(QTest::qWaitForWindowActive(&form));
    input(*box)->setFocus();
    box->SetText(QStringLiteral("11"));
    other->setFocus();
    QTRY_VERIFY(input(*box)->hasFocus());
    QCOMPARE(scope.fake().messages.size(), 1);
    QCOMPARE(scope.fake().messages[0].title, QStringLiteral("Data out of range"));
    QCOMPARE(scope.fake().messages[0].text,
             QStringLiteral("Value must be within the range of 1.00 through 10.00 inclusive"));
    QCOMPARE(box->Text(), QStringLiteral("11")); // the user's text is kept to correct

    box->SetText(QStringLiteral("9.5"));
    other->setFocus();
    QVERIFY(other->hasFocus());
    QCOMPARE(scope.fake().messages.size(), 1);
}

void tst_InputBox::leavingReformatsNumbers()
{
    zelTestScope scope;
    QWidget form;
    auto *box = new zelInputBox(&form);
    auto *other = new QLineEdit(&form);
    other->move(0, 40);
    form.show();
    QApplication::setActiveWindow(&form);
    QVERIFY(QTest::qWaitForWindowActive(&form));
    input(*box)->setFocus();
    QTest::keyClicks(input(*box), QStringLiteral("3.14159"));
    QCOMPARE(box->Text(), QStringLiteral("3.14159"));
    other->setFocus();
    QCOMPARE(box->Text(), QStringLiteral("3.14"));
}

void tst_InputBox::changedOnlyForUserEdits()
{
    zelTestScope scope;
    zelInputBox box;
    QSignalSpy changed(&box, &zelInputBox::Changed);
    box.SetValue(5);
    box.SetText(QStringLiteral("6"));
    box.SetDecimals(3);
    QCOMPARE(changed.size(), 0);
    QTest::keyClicks(input(box), QStringLiteral("12"));
    QCOMPARE(changed.size(), 2);
    // A setter that fails midway must not leave Changed switched off.
    box.SetValue(QStringLiteral("not a number"));
    QTest::keyClicks(input(box), QStringLiteral("1"));
    QCOMPARE(changed.size(), 3);
}

void tst_InputBox::focusSelectsWholeText()
{
    zelTestScope scope;
    QWidget form;
    auto *box = new zelInputBox(&form);
    auto *other = new QLineEdit(&form);
    other->move(0, 40);
    box->SetDataType(8);
    box->SetText(QStringLiteral("Roads"));
    form.show();
    QApplication::setActiveWindow(&form);
    QVERIFY(QTest::qWaitForWindowActive(&form));
    other->setFocus();
    input(*box)->setFocus(Qt::TabFocusReason);
    QTRY_COMPARE(input(*box)->selectedText(), QStringLiteral("Roads"));

    // Not in a form designer.
    other->setFocus();
    input(*box)->deselect();
    zel::SetUserMode(&form, false);
    input(*box)->setFocus(Qt::MouseFocusReason);
    QTest::qWait(10);
    QCOMPARE(input(*box)->selectedText(), QString());
}

void tst_InputBox::enabledAndReadOnlyColours()
{
    zelTestScope scope;
    zelInputBox box;
    auto base = [&] { return input(box)->palette().color(QPalette::Base); };
    QCOMPARE(base(), zel::ToQColor(zel::SysWindowBackground));
    box.SetEnabled(false);
    QCOMPARE(base(), zel::ToQColor(zel::SysButtonFace));
    QCOMPARE(input(box)->palette().color(QPalette::Text), zel::ToQColor(zel::SysGrayText));
    QVERIFY(!input(box)->isEnabled());
    box.SetReadOnly(true);
    box.SetEnabled(true);
    QCOMPARE(base(), zel::ToQColor(zel::SysButtonFace)); // read-only re-applied
    QVERIFY(input(box)->isReadOnly());
    QCOMPARE(input(box)->focusPolicy(), Qt::ClickFocus); // out of the tab order
    box.SetReadOnly(false);
    QCOMPARE(base(), zel::ToQColor(zel::SysWindowBackground));
    QCOMPARE(input(box)->focusPolicy(), Qt::StrongFocus);
}

void tst_InputBox::persistenceRoundTrip()
{
    zelTestScope scope;
    zelInputBox a;
    a.SetPrefix(QStringLiteral("Breite"));
    a.SetPrefixColon(true);
    a.SetPrefixWidth(1500);
    a.SetPrefixAlignment(0);
    a.SetPrefixBold(true);
    a.SetSuffix(QStringLiteral("m"));
    a.SetSuffixParens(true);
    a.SetSuffixWidth(300);
    a.SetSuffixAlignment(2);
    a.SetSuffixBold(true);
    a.SetMargin(90);
    a.SetWidth(2000);
    a.SetSendKeysTab(false);
    a.SetDataType(4);
    a.SetMaxLength(12);
    a.SetDecimals(3);
    a.SetValue(1.25);
    a.SetSpinButtons(true);
    a.SetValueMax(99.5);
    a.SetValueMin(-5);
    a.SetLimitValue(true);
    a.SetIllegalChars(QStringLiteral("#"));
    a.SetReadOnly(true);
    a.SetEnabled(false);

    zelJsonPropertyBag bag;
    a.WriteProperties(bag);
    zelJsonPropertyBag reread(bag.Object()); // through JSON values, as a file would
    zelInputBox b;
    b.ReadProperties(reread);

    for (const char *name :
         {"Prefix",     "PrefixColon",  "PrefixWidth", "PrefixAlignment", "PrefixBold",
          "Suffix",     "SuffixParens", "SuffixWidth", "SuffixAlignment", "SuffixBold",
          "Margin",     "Width",        "SendKeysTab", "DataType",        "MaxLength",
          "Decimals",   "Text",         "SpinButtons", "ValueMax",        "ValueMin",
          "LimitValue", "IllegalChars", "ReadOnly",    "Enabled"})
        QVERIFY2(a.property(name) == b.property(name), name);
    QCOMPARE(b.Text(), QStringLiteral("1.250"));
    QCOMPARE(zelCaptureLogger::errors.size(), 0);
}

void tst_InputBox::newControlStoresNothing()
{
    zelTestScope scope;
    zelInputBox box;
    zelMemoryPropertyBag bag;
    box.WriteProperties(bag);
    QCOMPARE(bag.Count(), 0);
}

void tst_InputBox::corruptBagIsLoggedNotFatal()
{
    zelTestScope scope;
    zelMemoryPropertyBag bag;
    bag.SetValue(QStringLiteral("Decimals"), QStringLiteral("abc"));
    bag.SetValue(QStringLiteral("Enabled"), QStringLiteral("maybe"));
    bag.SetValue(QStringLiteral("PrefixWidth"), QStringLiteral("wide"));
    bag.SetValue(QStringLiteral("MaxLength"), 1e9);
    bag.SetValue(QStringLiteral("Suffix"), QStringLiteral("kg"));
    bag.SetValue(QStringLiteral("PrefixAlignment"), 7);
    bag.SetValue(QStringLiteral("ValueMax"), QStringLiteral("12.5"));
    zelInputBox box;
    box.resize(300, 21);
    box.ReadProperties(bag);
    // Each bad key falls back to its default; the good ones are kept.
    QCOMPARE(box.Decimals(), qint16(2));
    QCOMPARE(box.Enabled(), true);
    QCOMPARE(box.PrefixWidth(), 0);
    QCOMPARE(box.MaxLength(), qint16(255));
    QCOMPARE(box.PrefixAlignment(), qint16(1));
    QCOMPARE(box.Suffix(), QStringLiteral("kg"));
    QCOMPARE(box.ValueMax(), 12.5);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelInputBox.UserControl_ReadProperties")), 4);
    QTest::keyClicks(input(box), QStringLiteral("42"));
    QCOMPARE(box.Value().toDouble(), 42.0);
}

void tst_InputBox::everyPropertyByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("MaxLength") << "MaxLength" << QVariant(20) << QVariant(20);
    QTest::newRow("Margin") << "Margin" << QVariant(120) << QVariant(120);
    QTest::newRow("Prefix") << "Prefix" << QVariant("Name") << QVariant("Name");
    QTest::newRow("PrefixAlignment") << "PrefixAlignment" << QVariant(2) << QVariant(2);
    QTest::newRow("PrefixWidth") << "PrefixWidth" << QVariant("1200") << QVariant(1200);
    QTest::newRow("PrefixColon") << "PrefixColon" << QVariant(true) << QVariant(true);
    QTest::newRow("PrefixBold") << "PrefixBold" << QVariant(-1) << QVariant(true);
    QTest::newRow("ReadOnly") << "ReadOnly" << QVariant("True") << QVariant(true);
    QTest::newRow("SendKeysTab") << "SendKeysTab" << QVariant(false) << QVariant(false);
    QTest::newRow("Suffix") << "Suffix" << QVariant("kg") << QVariant("kg");
    QTest::newRow("SuffixAlignment") << "SuffixAlignment" << QVariant(1) << QVariant(1);
    QTest::newRow("SuffixWidth") << "SuffixWidth" << QVariant(300) << QVariant(300);
    QTest::newRow("SuffixParens") << "SuffixParens" << QVariant(true) << QVariant(true);
    QTest::newRow("SuffixBold") << "SuffixBold" << QVariant(true) << QVariant(true);
    QTest::newRow("Decimals") << "Decimals" << QVariant(3.0) << QVariant(3);
    QTest::newRow("Width") << "Width" << QVariant(1500) << QVariant(1500);
    QTest::newRow("DataType") << "DataType" << QVariant(3) << QVariant(3);
    QTest::newRow("SpinButtons") << "SpinButtons" << QVariant(true) << QVariant(true);
    QTest::newRow("ValueMax") << "ValueMax" << QVariant(9.5) << QVariant(9.5);
    QTest::newRow("ValueMin") << "ValueMin" << QVariant("-2") << QVariant(-2.0);
    QTest::newRow("IllegalChars") << "IllegalChars" << QVariant("#") << QVariant("#");
    QTest::newRow("LimitValue") << "LimitValue" << QVariant(true) << QVariant(true);
    QTest::newRow("Value") << "Value" << QVariant(4.567) << QVariant(4.57);
    QTest::newRow("Text") << "Text" << QVariant("7") << QVariant("7");
    QTest::newRow("Enabled") << "Enabled" << QVariant(false) << QVariant(false);
}

void tst_InputBox::everyPropertyByName()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(QVariant, expected);
    zelTestScope scope;
    std::unique_ptr<QObject> box(zel::CreateObject(QStringLiteral("zelCtrl.zelInputBox")));
    QVERIFY(box);
    QVERIFY(box->setProperty(name.toLatin1().constData(), value));
    const QVariant back = box->property(name.toLatin1().constData());
    if (expected.metaType().id() == QMetaType::QString)
        QCOMPARE(back.toString(), expected.toString());
    else if (expected.metaType().id() == QMetaType::Bool)
        QCOMPARE(back.toBool(), expected.toBool());
    else
        QCOMPARE(back.toDouble(), expected.toDouble());
    QCOMPARE(zelCaptureLogger::errors.size(), 0);
    // The same through the library's own late-bound door, any letter case.
    QVERIFY(zel::SetProperty(box.get(), name.toUpper(), value));
    QCOMPARE(zel::GetProperty(box.get(), name.toLower()), back);
}

void tst_InputBox::wrongTypeByNameIsLoggedAndIgnored_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("error");
    QTest::newRow("Decimals abc") << "Decimals" << QVariant("abc") << 13;
    QTest::newRow("MaxLength overflow") << "MaxLength" << QVariant(70000) << 6;
    QTest::newRow("Enabled maybe") << "Enabled" << QVariant("maybe") << 13;
    QTest::newRow("DataType text") << "DataType" << QVariant("double") << 13;
    QTest::newRow("ValueMax point") << "ValueMax" << QVariant(QPoint(1, 2)) << 13;
    QTest::newRow("alignment out of range") << "PrefixAlignment" << QVariant(9) << 380;
    QTest::newRow("negative MaxLength") << "MaxLength" << QVariant(-1) << 380;
}

void tst_InputBox::wrongTypeByNameIsLoggedAndIgnored()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(int, error);
    zelTestScope scope;
    zelInputBox box;
    const QByteArray n = name.toLatin1();
    const QVariant before = box.property(n.constData());
    box.setProperty(n.constData(), value);
    QCOMPARE(box.property(n.constData()), before);
    QCOMPARE(zelCaptureLogger::errors.size(), 1);
    QCOMPARE(zelCaptureLogger::errors[0][2].toString(),
             QStringLiteral("zelInputBox.") + name + QStringLiteral(" Let"));
    QCOMPARE(zelCaptureLogger::errors[0][3].toInt(), error);
}

void tst_InputBox::eventsAndWidgetsByName()
{
    zelTestScope scope;
    zelInputBox box;
    const QMetaObject *mo = box.metaObject();
    for (const char *signal :
         {"Changed()", "KeyPress(qint16&)", "KeyDown(qint16&,qint16&)", "KeyUp(qint16&,qint16&)"})
        QVERIFY2(mo->indexOfSignal(QMetaObject::normalizedSignature(signal)) >= 0, signal);
    QVERIFY(box.findChild<QLineEdit *>(QStringLiteral("txtInput")));
    QVERIFY(box.findChild<QLabel *>(QStringLiteral("lblPrefix")));
    QVERIFY(box.findChild<QLabel *>(QStringLiteral("lblSuffix")));
    const int fs = mo->indexOfProperty("FormatString");
    QVERIFY(fs >= 0 && !mo->property(fs).isWritable());
    box.SetDecimals(2);
    QCOMPARE(box.property("FormatString").toString(), QStringLiteral("0.00"));
    box.SetDecimals(0);
    QCOMPARE(box.property("FormatString").toString(), QStringLiteral("0"));
    box.SetDataType(8);
    QCOMPARE(box.property("FormatString").toString(), QString());

    // A late-bound host answers KeyPress through the by-reference argument.
    box.SetText(QString());
    connect(&box, &zelInputBox::KeyPress, this,
            [](qint16 &k) { k = qint16(QChar(k).toUpper().unicode()); });
    QTest::keyClicks(input(box), QStringLiteral("ab"));
    QCOMPARE(box.Text(), QStringLiteral("AB"));
}

QTEST_MAIN(tst_InputBox)
#include "tst_inputbox.moc"
