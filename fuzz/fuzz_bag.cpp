// A property store of any content, loaded into a bag and read by a control
// (the input's size picks which): JSON for fuzz_jsonbag, a settings (INI)
// file for fuzz_inibag (built with ZEL_FUZZ_INI; the controls' keys in the
// group [Form]). A corrupt store gives logged errors and defaults, never a
// crash; what the control then saves reads back to the same save.

#include "zelFuzzSupport.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QSettings>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
#ifndef ZEL_FUZZ_INI
    zelJsonPropertyBag bag(QJsonDocument::fromJson(bytes).object());
    zelfuzz::ReadIntoControl(bag, size);
#else
    // QSettings keeps parsed files by name; a new name per input makes it
    // parse each one.
    static int serial = 0;
    const QString file = QStringLiteral("/tmp/zelfuzz-%1-%2.ini")
                             .arg(QCoreApplication::applicationPid())
                             .arg(serial++);
    {
        QFile f(file);
        zelfuzz::Check(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size(),
                       "cannot write the settings file");
    }
    {
        QSettings settings(file, QSettings::IniFormat);
        zelSettingsPropertyBag bag(settings, QStringLiteral("Form"));
        zelfuzz::ReadIntoControl(bag, size);
    }
    QFile::remove(file);
#endif
    return 0;
}
