// A host built against the installed package: early and late bound.
#include <zelCtrl/zelCtrl.h>

#include <QApplication>
#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    zelInputBox box;
    box.SetPrefix(QStringLiteral("Width"));
    std::unique_ptr<QObject> late(zel::CreateObject(QStringLiteral("zelCtrl.zelInputBox")));
    if (!late || !late->setProperty("Decimals", 3) || late->property("Decimals").toInt() != 3) {
        std::fprintf(stderr, "late binding failed\n");
        return 1;
    }
    std::printf("zelCtrl %s: %s\n", qPrintable(mLog::VersionString()), qPrintable(box.Prefix()));
    return 0;
}
