#include "platform/qt/ScreenScale.h"

#include <QByteArray>
#include <QString>

#include "platform/ScaleText.h"
#include "platform/qt/Text.h"

namespace platform::qt {

void TakeScaleAskedFor() {
    const std::optional<ink::Scale> scale = ScaleOfText(FromQt(qEnvironmentVariable("INKWRIGHT_SCALE")));
    if (!scale) return;
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");  // the monitors' own numbers
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale->Length(1)));
}

}  // namespace platform::qt
