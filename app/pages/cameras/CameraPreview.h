#pragma once

#include "app/look/Accessible.h"
#include "app/model/Poll.h"
#include "app/readers/CameraMonitor.h"

#include <QWidget>

namespace tessivo {

/// The live picture of the camera that the monitor has open: whole, never cropped, in an area of 16 to 9.
class CameraPreview final : public QWidget, public AccessibleTraits {
    Q_OBJECT

public:
    static constexpr int largestWidth = 560;

    /// The monitor and the scheduler outlive the preview.
    CameraPreview(const CameraMonitor& monitor, Scheduler& scheduler, QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    void refresh();

    const CameraMonitor& m_monitor;
    QImage m_picture;
    QImage m_scaled; ///< the picture in the pixels of the screen
    Poll m_poll;
};

} // namespace tessivo
