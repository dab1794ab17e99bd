#pragma once

#include "app/pages/capture/CaptureView.h"
#include "app/pages/microphones/MicrophoneRow.h"
#include "app/readers/MicMonitor.h"

namespace tessivo {

/// The microphone test: listens to one microphone at a time and shows its level; the loudest of each goes
/// into the session.
class MicrophonesView final : public CaptureView<MicMonitor, MicrophoneRow, MicReading> {
    Q_OBJECT

public:
    static const char* const how;

    explicit MicrophonesView(const PageContext& context, QWidget* parent = nullptr);

private:
    const std::optional<std::string>& inUse() const override { return monitor().listening(); }
    bool open(const CaptureDevice& device, std::function<void(OpenFault)> onFault) override;
    MicrophoneRow* makeRow(const CaptureDevice& device) override;
    void showOn(MicrophoneRow& row, const MicReading* reading, bool open) override;
};

} // namespace tessivo
