#pragma once

#include "app/pages/cameras/CameraRow.h"
#include "app/pages/capture/CaptureView.h"

namespace tessivo {

/// The camera test: opens one camera at a time, shows its picture and asks how it looked.
class CamerasView final : public CaptureView<CameraMonitor, CameraRow, CameraReading> {
    Q_OBJECT

public:
    static const char* const how;

    explicit CamerasView(const PageContext& context, QWidget* parent = nullptr);

private:
    const std::optional<std::string>& inUse() const override { return monitor().showing(); }
    bool open(const CaptureDevice& device, std::function<void(OpenFault)> onFault) override;
    CameraRow* makeRow(const CaptureDevice& device) override;
    void showOn(CameraRow& row, const CameraReading* reading, bool open) override;
};

} // namespace tessivo
