// A JSON property store of any content, loaded into a bag and read by a
// control (the input's size picks which): a corrupt store gives logged
// errors and defaults, never a crash; what the control then saves reads back
// to the same save.

#include "zelFuzzSupport.h"

#include "platform/zelPropertyBag.h"

#include <QJsonDocument>

ZEL_FUZZ_INIT

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QJsonDocument doc =
        QJsonDocument::fromJson(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    zelJsonPropertyBag bag(doc.object());
    zelfuzz::ReadIntoControl(bag, size);
    return 0;
}
