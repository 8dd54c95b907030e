// A settings (INI) property store of any content, read through a settings
// bag by a control, as fuzz_jsonbag does with JSON. The controls' keys
// are read from the group [Form].

#include "zelFuzzSupport.h"

#include "platform/zelPropertyBag.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>

ZEL_FUZZ_INIT

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // QSettings keeps parsed files by name; a new name per input makes it
    // parse each one.
    static int serial = 0;
    const QString file = QStringLiteral("/tmp/zelfuzz-%1-%2.ini")
                             .arg(QCoreApplication::applicationPid())
                             .arg(serial++);
    {
        QFile f(file);
        zelfuzz::Check(f.open(QIODevice::WriteOnly), "cannot write the settings file");
        f.write(reinterpret_cast<const char *>(data), qint64(size));
    }
    {
        QSettings settings(file, QSettings::IniFormat);
        zelSettingsPropertyBag bag(settings, QStringLiteral("Form"));
        zelfuzz::ReadIntoControl(bag, size);
    }
    QFile::remove(file);
    return 0;
}
