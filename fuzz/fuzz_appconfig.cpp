// Arbitrary bytes as a configuration file.
#include "cappconfig.h"

#include <QBuffer>

#include <cstdint>

namespace {
class FuzzConfig : public CAppConfig
{
public:
    FuzzConfig()
    {
        registerStringKey("Name", &name);
        registerBoolKey("Flag", &flag);
    }
    CString name;
    bool flag = false;
};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray bytes
        = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        return 0;
    FuzzConfig config;
    config.readConfigFromDevice(buffer);
    if (config.getPlatform() < 0 || config.getPlatform() > 2)
        __builtin_trap();
    // A value never outgrows its line, nor a line the bound.
    if (config.name.size() > CAppConfig::MaxLineBytes
        || config.getPlatformText().size() > CAppConfig::MaxLineBytes
        || qsizetype(config.name.size()) > qsizetype(size))
        __builtin_trap();
    return 0;
}
