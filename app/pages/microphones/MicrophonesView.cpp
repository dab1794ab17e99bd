#include "app/pages/microphones/MicrophonesView.h"

#include "app/model/QtText.h"

namespace tessivo {

const char* const MicrophonesView::how =
    "Choose Listen for each microphone, then talk or clap near the Mac. The meter should jump. Nothing is "
    "recorded or saved; the sound is only measured while this page is open.";

MicrophonesView::MicrophonesView(const PageContext& context, QWidget* parent)
    : CaptureView(context, MediaType::audio,
                  {.openSettings = "Open Microphone Settings",
                   .noneFound = "No microphone found.",
                   .noService = "Couldn't list the microphones: the sound service doesn't "
                                "answer or has no input switched on. Check the sound "
                                "settings or restart the Mac.",
                   .noDriver = "Couldn't list the microphones: this system has no driver for "
                               "the Mac's sound hardware. Test them under macOS."},
                  &SessionState::microphones, parent) {
    connect(&monitor(), &MicMonitor::listeningChanged, this, [this] { follow(); });
    connect(&monitor(), &MicMonitor::levelChanged, this, [this] { follow(); });
}

bool MicrophonesView::open(const CaptureDevice& device, std::function<void(OpenFault)> onFault) {
    const auto onPeak = [this, id = device.uniqueID](double level) {
        changeReading(id, [level](MicReading& reading) {
            reading.hear(level);
            reading.failed = false; // it opened this time
        });
    };
    return monitor().listen(device, onPeak, std::move(onFault));
}

MicrophoneRow* MicrophonesView::makeRow(const CaptureDevice& device) {
    return new MicrophoneRow(qt(device.localizedName));
}

void MicrophonesView::showOn(MicrophoneRow& row, const MicReading* reading, bool open) {
    row.setReading(reading);
    row.setLevel(open ? std::optional(monitor().level()) : std::nullopt);
}

} // namespace tessivo
