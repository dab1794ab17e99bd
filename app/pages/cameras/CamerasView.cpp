#include "app/pages/cameras/CamerasView.h"

#include "app/model/QtText.h"

namespace tessivo {

const char* const CamerasView::how =
    "Open each camera and look at the picture: it should be sharp and clear, with no spots, lines or odd "
    "colors. Nothing is recorded or saved.";

CamerasView::CamerasView(const PageContext& context, QWidget* parent)
    : CaptureView(context, MediaType::video,
                  {.openSettings = "Open Camera Settings",
                   .noneFound = "No camera found.",
                   .noService = "Couldn't list the cameras: the system doesn't answer. "
                                "If that lasts, restart the Mac.",
                   .noDriver = "Couldn't list the cameras: this system has no driver for the "
                               "Mac's own camera. Test it under macOS."},
                  &SessionState::cameras, parent) {
    connect(&monitor(), &CameraMonitor::showingChanged, this, [this] { follow(); });
    connect(&monitor(), &CameraMonitor::framesSeenChanged, this, [this] { follow(); });
}

bool CamerasView::open(const CaptureDevice& device, std::function<void(OpenFault)> onFault) {
    const auto onFrames = [this, id = device.uniqueID] {
        changeReading(id, [](CameraReading& reading) {
            reading.framesSeen = true;
            reading.failed = false; // it opened this time
        });
    };
    return monitor().show(device, onFrames, std::move(onFault));
}

CameraRow* CamerasView::makeRow(const CaptureDevice& device) {
    auto* row = new CameraRow(qt(device.localizedName), monitor(), model().platform().scheduler());
    connect(row, &CameraRow::answered, this, [this, id = device.uniqueID](ManualAnswer answer) {
        changeReading(id, [answer](CameraReading& reading) { reading.answer = answer; });
    });
    return row;
}

void CamerasView::showOn(CameraRow& row, const CameraReading* reading, bool open) {
    row.setOpen(open, open && monitor().framesSeen());
    row.setAnswer(reading ? reading->answer : ManualAnswer::unanswered);
}

} // namespace tessivo
