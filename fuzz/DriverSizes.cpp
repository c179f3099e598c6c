#include "printers/DriverSizes.h"
#include "FuzzInput.h"
#include <QBuffer>

// For any description of a driver: each size that is found has two sides.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    fuzz::Input input(data, size);
    const QByteArray asked = input.Line().toUtf8();
    QByteArray description = input.Rest();
    QBuffer device(&description);
    fuzz::Require(device.open(QIODevice::ReadOnly), "a description can be read");
    const DriverSizes sizes(device);
    for (const QByteArray& name : {asked, asked.toUpper(), sizes.DefaultName()}) {
        const auto found = sizes.Named(name);
        fuzz::Require(!found || (found->Width > 0 && found->Length > 0), "a size has two sides");
    }
    fuzz::Require(sizes.Named(asked).has_value() == sizes.Named(asked.toLower()).has_value(),
                  "the case of a name does not matter");
    return 0;
}
