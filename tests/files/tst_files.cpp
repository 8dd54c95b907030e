// The file objects as a host meets them: what a real file's path, size and
// date read as, what a path that names no file leaves, the keys of the two
// collections, and the host's values a file keeps without showing them.

#include "files/zelFileFilters.h"
#include "files/zelFileList.h"
#include "platform/zelLateBinding.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString makeFile(const QTemporaryDir &dir, const QString &name, qint64 bytes, const QDateTime &at)
{
    QFile f(dir.filePath(name));
    if (!f.open(QIODevice::WriteOnly) || f.write(QByteArray(bytes, 'x')) != bytes)
        qFatal("cannot write %s", qPrintable(f.fileName()));
    f.flush(); // a write after the stamp would stamp it anew
    f.setFileTime(at, QFileDevice::FileModificationTime);
    return QDir::toNativeSeparators(f.fileName());
}

const QDateTime Stamp(QDate(2021, 3, 4), QTime(17, 5, 9));

} // namespace

class tst_Files : public QObject
{
    Q_OBJECT

private slots:
    void realFileReadsAs_data()
    {
        zelColumns<QString, qint64, QString, QString>({"name", "bytes", "size", "extension"});
        zelRow("empty", QStringLiteral("empty.txt"), qint64(0), QStringLiteral("1 KB"),
               QStringLiteral("txt"));
        zelRow("one byte", QStringLiteral("one.dbf"), qint64(1), QStringLiteral("1 KB"),
               QStringLiteral("dbf"));
        zelRow("a half up to even", QStringLiteral("Map.SHP"), qint64(1536), QStringLiteral("2 KB"),
               QStringLiteral("shp"));
        zelRow("two", QStringLiteral("two.Txt"), qint64(2048), QStringLiteral("2 KB"),
               QStringLiteral("txt"));
        zelRow("a half down to even", QStringLiteral("noext"), qint64(2560), QStringLiteral("2 KB"),
               QString());
        zelRow("three and a half", QStringLiteral("a.b.PRJ"), qint64(3584), QStringLiteral("4 KB"),
               QStringLiteral("prj"));
    }
    void realFileReadsAs()
    {
        const auto [name, bytes, size] =
            zelFetch<QString, qint64, QString>({"name", "bytes", "size"});
        zelTestScope scope;
        QTemporaryDir dir;
        const QString path = makeFile(dir, name, bytes, Stamp);
        zelFile file;
        file.SetFullPath(path);
        QCOMPARE(file.Size(), bytes);
        QCOMPARE(file.SizeAsString(), size);
        QTEST(file.Extension(), "extension");
        QCOMPARE(file.Name(), name);
        QCOMPARE(file.Folder(), QDir::toNativeSeparators(dir.path()));
        QCOMPARE(file.FileDate(), Stamp);
        file.SetName(QStringLiteral("Shown"));
        QCOMPARE(file.Name(), QStringLiteral("Shown"));
        QCOMPARE(zelLoggedErrors(), 0);
    }

    // A path that names no file keeps the date and size read before: a
    // file removed after it was listed still answers with its old facts.
    void noFileKeepsDateAndSize_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("empty") << QString();
        QTest::newRow("removed") << QStringLiteral("removed");
        QTest::newRow("a folder") << QStringLiteral(".");
        QTest::newRow("100000 characters") << QString(100000, QLatin1Char('a'));
    }
    void noFileKeepsDateAndSize()
    {
        QFETCH(QString, path);
        zelTestScope scope;
        QTemporaryDir dir;
        zelFile file;
        file.SetFullPath(makeFile(dir, QStringLiteral("x.shp"), 5000, Stamp));
        if (path == QLatin1String("removed"))
            QVERIFY(QFile::remove(file.FullPath()));
        file.SetFullPath(path == QLatin1String("removed") ? file.FullPath() : dir.filePath(path));
        QCOMPARE(file.Size(), 5000);
        QCOMPARE(file.FileDate(), Stamp);
    }

    void collectionsKeepTheirKeys()
    {
        zelTestScope scope;
        zelFileList list;
        QVERIFY(list.Create(QStringLiteral("/data/a.shp"), QStringLiteral("first"), false));
        QVERIFY(!list.Create(QStringLiteral("/DATA/A.SHP")));
        QVERIFY(!list.Create(QString()));
        QCOMPARE(list.Count(), 1);
        const zelFile::Ptr a = list.Item(1);
        QCOMPARE(a->Comment(), QStringLiteral("first"));
        QVERIFY(!a->Selected());
        a->SetFullPath(QStringLiteral("/data/b.shp")); // the key stays the first path
        QCOMPARE(list.Item(QStringLiteral("/data/a.shp")), a);
        QVERIFY(!list.Remove(QStringLiteral("/data/b.shp")));
        QVERIFY(list.Create(QStringLiteral("/data/b.shp")));

        zelFileFilters filters;
        const auto shp = filters.Create(QStringLiteral("shp"), QStringLiteral("*.shp"));
        QVERIFY(shp);
        QCOMPARE(shp->Name(), QStringLiteral("shp"));
        shp->SetKey(QStringLiteral("other"));
        QCOMPARE(shp->Key(), QStringLiteral("shp"));
        QVERIFY(
            !filters.Create(QStringLiteral("SHP"), QStringLiteral("*.*"), QStringLiteral("All")));
        auto *loose = new zelFileFilter; // the host's own, made by program
        QCOMPARE(loose->Filter(), QStringLiteral("*.*"));
        QVERIFY(!filters.Add(loose)); // no key yet
        loose->SetKey(QStringLiteral("all"));
        QVERIFY(filters.Add(loose));
        delete loose; // the host lets go; the collection keeps its own
        QCOMPARE(filters.Item(2)->Name(), QStringLiteral("all"));
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void hostValuesStayTheHosts()
    {
        zelTestScope scope;
        zelFile file;
        auto *object = new QObject;
        file.SetTag(QVariant::fromValue(object));
        QCOMPARE(qvariant_cast<QObject *>(file.Tag()), object);
        delete object; // a reference, not a copy: it goes with the object
        QCOMPARE(qvariant_cast<QObject *>(file.Tag()), nullptr);
        QVariantMap value{{QStringLiteral("k"), 1}};
        file.SetTag(value);
        value.clear();
        QCOMPARE(file.Tag().toMap().value(QStringLiteral("k")), 1);

        // The password is kept as given and reaches no log or message,
        // whatever else fails on the way.
        const QString secret = QStringLiteral("s3cret-pw");
        QVERIFY(zel::SetProperty(&file, QStringLiteral("POPPassword"), secret));
        QCOMPARE(file.POPPassword(), secret);
        zel::SetProperty(&file, QStringLiteral("POPPassword"), QVariantMap{{secret, secret}});
        zel::SetProperty(&file, QStringLiteral("POPPort"), secret);
        QVERIFY(zelLoggedErrors() >= 2);
        for (const QVariantList &e : std::as_const(zelCaptureLogger::errors))
            for (const QVariant &part : e)
                QVERIFY(!part.toString().contains(secret));
        for (const auto &m : std::as_const(scope.fake().messages))
            QVERIFY(!m.text.contains(secret));
        QCOMPARE(file.POPPassword(), secret);
    }
};

QTEST_MAIN(tst_Files)
#include "tst_files.moc"
