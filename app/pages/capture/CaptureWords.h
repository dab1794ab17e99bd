#pragma once

#include <QString>

namespace tessivo {

/// What a page says of its kind of device.
struct CaptureWords {
    QString openSettings; ///< the button of a denial
    QString noneFound;
    QString noService; ///< why there is no list
    QString noDriver;
};

} // namespace tessivo
