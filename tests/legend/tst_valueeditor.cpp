// The value editor as a user types into it: the "<new>" row, sources found
// ignoring case, duplicates refused, and undo from the keyboard.

#include "legend/zelValueEditor.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSignalSpy>
#include <QTableView>

namespace {

QString sources(const zelValueEditor &e)
{
    QStringList s;
    for (int row = 0; row <= e.Count(); ++row)
        s << e.CellText(row, 0);
    return s.join(QLatin1Char('|'));
}

} // namespace

class tst_ValueEditor : public QObject
{
    Q_OBJECT

private slots:
    void entries()
    {
        zelValueEditor e;
        e.Create(QStringLiteral("road"), 3, 0xFF);
        const auto water = e.Create(QStringLiteral("Water"));
        QCOMPARE(e.ItemBySource(QStringLiteral("ROAD")), e.Item(1));
        QVERIFY(!e.ItemBySource(QStringLiteral("rail")));
        QCOMPARE(water->Clone()->Key(), water->Key());
        // A missing value is copied as an empty one, unlike a range's 0.
        QVERIFY(!water->Clone()->Value().isValid());
        zelValueItem placeholder;
        e.Create(QStringLiteral("<NEW>"));
        QVERIFY(e.Item(3)->IsNew() && !water->IsNew() && !placeholder.IsNew());
        QCOMPARE(sources(e), QStringLiteral("road|Water|<NEW>|<new>"));
    }

    void typedSources_data()
    {
        zelColumns<int, QString, QString, int>({"row", "text", "sources", "messages"});
        zelRow("a new source", 2, QStringLiteral(" rail "), QStringLiteral("road|Water|rail|<new>"),
               0);
        zelRow("a taken source", 2, QStringLiteral("WATER"), QStringLiteral("road|Water|<new>"), 1);
        zelRow("the placeholder typed", 2, QStringLiteral("<New>"),
               QStringLiteral("road|Water|<new>"), 0);
        zelRow("nothing typed", 2, QString(), QStringLiteral("road|Water|<new>"), 0);
        zelRow("renamed", 0, QStringLiteral("street"), QStringLiteral("street|Water|<new>"), 0);
        zelRow("renamed onto another", 0, QStringLiteral("water"),
               QStringLiteral("road|Water|<new>"), 1);
    }
    void typedSources()
    {
        const auto [row, text] = zelFetch<int, QString>({"row", "text"});
        zelTestScope scope;
        zelValueEditor e;
        e.Create(QStringLiteral("road"));
        e.Create(QStringLiteral("Water"));
        QSignalSpy changed(&e, &zelValueEditor::Changed);
        e.EditCell(row, 0, text);
        QTEST(sources(e), "sources");
        QTEST(int(scope.fake().messages.size()), "messages");
        QCOMPARE(changed.size(), sources(e) == QLatin1String("road|Water|<new>") ? 0 : 1);
    }

    void userTypesAndUndoes()
    {
        zelTestScope scope;
        QWidget form;
        auto *e = new zelValueEditor(&form);
        e->SetDstFormat(QStringLiteral("0.0"));
        e->Create(QStringLiteral("road"), 1);
        form.resize(400, 300);
        QVERIFY(zelShowActive(form));
        QSignalSpy changed(e, &zelValueEditor::Changed);
        e->findChild<QAbstractButton *>(QStringLiteral("cmdInsert"))->click();
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("forest"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        // The delegate commits from the event loop.
        QTRY_COMPARE(sources(*e), QStringLiteral("road|forest|<new>"));
        e->EditCell(1, 1, QStringLiteral("7"));
        QCOMPARE(e->CellText(1, 1), QStringLiteral("7.0"));
        e->Grid()->setCurrentIndex(e->Grid()->model()->index(0, 0));
        e->findChild<QAbstractButton *>(QStringLiteral("cmdRemove"))->click();
        QCOMPARE(sources(*e), QStringLiteral("forest|<new>"));
        QCOMPARE(changed.size(), 3);
        for (const char *expected : {"road|forest|<new>", "road|forest|<new>", "road|<new>"}) {
            QTest::keyClick(e->Grid(), Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(sources(*e), QString::fromLatin1(expected));
        }
        QCOMPARE(e->CellText(0, 1), QStringLiteral("1.0"));
        QTest::keyClick(e->Grid(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(sources(*e), QStringLiteral("road|forest|<new>"));
        QCOMPARE(changed.size(), 7);
    }
};

QTEST_MAIN(tst_ValueEditor)
#include "tst_valueeditor.moc"
