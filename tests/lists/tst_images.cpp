#include "core/zelError.h"
#include "lists/zelImageList.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using zel::zelImageList;

namespace {

QImage At16(const zelImageList &images, qint32 index)
{
    return images.Icon(index).pixmap(16).toImage().convertToFormat(QImage::Format_ARGB32);
}

QPixmap Filled(const QColor &colour)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return pixmap;
}

} // namespace

class tst_images : public QObject
{
    Q_OBJECT

private slots:
    void keysFindTheirPictureInAnyLetterCase_data()
    {
        QTest::addColumn<QVariant>("key");
        QTest::addColumn<qint32>("index");
        QTest::newRow("first") << QVariant("tank") << 1;
        QTest::newRow("upper") << QVariant("BIN") << 2;
        QTest::newRow("mixed") << QVariant("tractorSIDEred") << 10;
        QTest::newRow("maker") << QVariant("QUORVANE") << 17;
        QTest::newRow("plural before singular") << QVariant("flags") << 40;
        QTest::newRow("last") << QVariant("Flag") << 41;
        QTest::newRow("unknown") << QVariant("Tractor") << 0;
        QTest::newRow("empty") << QVariant("") << 0;
        QTest::newRow("missing") << QVariant() << 0;
        QTest::newRow("number is a key, not a position") << QVariant(3) << 0;
        QTest::newRow("picture is no key") << QVariant(QPixmap()) << 0;
    }
    void keysFindTheirPictureInAnyLetterCase()
    {
        QFETCH(QVariant, key);
        QFETCH(qint32, index);
        QCOMPARE(zelImageList().ImageIndex(key), index);
    }

    void everyPictureIsDistinctAndVisibleAt16()
    {
        zelImageList images;
        QCOMPARE(images.Count(), 41);
        QList<QImage> seen;
        for (qint32 i = 1; i <= images.Count(); ++i) {
            const QImage image = At16(images, i);
            qsizetype opaque = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    opaque += qAlpha(image.pixel(x, y)) > 128;
            QVERIFY2(opaque >= 30, qPrintable(QString::number(i)));
            QVERIFY2(!seen.contains(image), qPrintable(QString::number(i)));
            seen << image;
        }
        for (qint32 outside : {0, -1, 42})
            QVERIFY(images.Icon(outside).isNull());
    }

    void replacingAKnownKeyChangesThatIconOnly()
    {
        zelImageList images;
        QList<QImage> before;
        for (qint32 i = 1; i <= images.Count(); ++i)
            before << At16(images, i);
        QSignalSpy changed(&images, &zelImageList::ImagesChanged);
        QVERIFY(images.ReplaceImage("GEAR", Filled(Qt::magenta)));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(images.Count(), 41);
        QCOMPARE(At16(images, 5).pixel(8, 8), QColor(Qt::magenta).rgb());
        for (qint32 i = 1; i <= images.Count(); ++i)
            if (i != 5)
                QCOMPARE(At16(images, i), before[i - 1]);
    }

    void aNewKeyIsAppendedFromEveryKindOfPicture_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char *kind : {"pixmap", "image", "icon", "file"})
            QTest::newRow(kind) << kind;
    }
    void aNewKeyIsAppendedFromEveryKindOfPicture()
    {
        QFETCH(QString, kind);
        QTemporaryDir dir;
        const QPixmap green = Filled(Qt::green);
        const QString file = dir.filePath("green.png");
        QVERIFY(green.save(file));
        const QVariant handle = kind == "pixmap"  ? QVariant(green)
                                : kind == "image" ? QVariant(green.toImage())
                                : kind == "icon"  ? QVariant(QIcon(green))
                                                  : QVariant(file);
        zelImageList images;
        QVERIFY(images.ReplaceImage("Harvest", handle));
        QCOMPARE(images.ImageIndex("hARVEST"), 42);
        QCOMPARE(At16(images, 42).pixel(3, 3), QColor(Qt::green).rgb());
        QCOMPARE(images.ImageIndex("Tank"), 1);
    }

    void clearImagesForgetsEveryKey()
    {
        zelImageList images;
        QSignalSpy changed(&images, &zelImageList::ImagesChanged);
        images.ClearImages();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(images.Count(), 0);
        QVERIFY(images.Icon(1).isNull());
        for (const char *key : {"Tank", "Folder", "Flag"})
            QCOMPARE(images.ImageIndex(key), 0);
        QVERIFY(images.ReplaceImage("Flag", Filled(Qt::red)));
        QCOMPARE(images.ImageIndex("flag"), 1);
        QCOMPARE(images.ImageIndex("Tank"), 0);
    }

    void aBadPictureIsRefusedAndChangesNothing_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("handle");
        QTest::addColumn<qint32>("number");
        const QString garbage = m_dir.filePath("garbage.png");
        QFile file(garbage);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("\x89PNG not a picture") > 0);
        file.close();
        QTest::newRow("null pixmap") << "Tank" << QVariant(QPixmap()) << 481;
        QTest::newRow("null image") << "New" << QVariant(QImage()) << 481;
        QTest::newRow("empty icon") << "Tank" << QVariant(QIcon()) << 481;
        QTest::newRow("missing file") << "New" << QVariant(m_dir.filePath("none.png")) << 53;
        QTest::newRow("empty file name") << "Tank" << QVariant(QString()) << 53;
        QTest::newRow("folder") << "New" << QVariant(m_dir.path()) << 481;
        QTest::newRow("garbage bytes") << "Tank" << QVariant(garbage) << 481;
        QTest::newRow("nothing") << "New" << QVariant() << 13;
        QTest::newRow("number") << "Tank" << QVariant(7) << 13;
        QTest::newRow("empty key") << "" << QVariant(Filled(Qt::red)) << 5;
    }
    void aBadPictureIsRefusedAndChangesNothing()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, handle);
        QFETCH(qint32, number);
        zelImageList images;
        const QImage tank = At16(images, 1);
        QSignalSpy changed(&images, &zelImageList::ImagesChanged);
        try {
            images.ReplaceImage(key, handle);
            QFAIL("accepted");
        } catch (const zelError &e) {
            QCOMPARE(e.Number(), number);
            QVERIFY(!e.Description().isEmpty());
        }
        QCOMPARE(changed.count(), 0);
        QCOMPARE(images.Count(), 41);
        QCOMPARE(images.ImageIndex("New"), 0);
        QCOMPARE(At16(images, 1), tank);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(tst_images)
#include "tst_images.moc"
