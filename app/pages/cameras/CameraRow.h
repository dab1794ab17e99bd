#pragma once

#include "app/layout/Column.h"
#include "app/pages/cameras/CameraPreview.h"
#include "kit/vocabulary/ManualAnswer.h"

namespace tessivo {

class AnswerButtons;
class Button;
class WrapRow;

/// One camera: its name, the button that opens or closes it, its picture while it is open, and the person's
/// answer.
class CameraRow final : public Column, public AccessibleTraits {
    Q_OBJECT

public:
    /// The monitor and the scheduler outlive the row.
    CameraRow(const QString& name, const CameraMonitor& monitor, Scheduler& scheduler,
              QWidget* parent = nullptr);

    /// `sending` tells that the picture is live.
    void setOpen(bool open, bool sending);
    void setAnswer(ManualAnswer answer);
    QAccessible::Role spokenRole() const override { return QAccessible::Grouping; }

Q_SIGNALS:
    void toggled();
    void answered(tessivo::ManualAnswer answer);

private:
    QWidget* makeNote();

    const CameraMonitor& m_monitor;
    Scheduler& m_scheduler;
    Button* m_button;
    Column* m_stage;
    WrapRow* m_picture =
        nullptr; ///< the picture with its note beside it, or under it where the width is small
    QWidget* m_sending = nullptr;
    AnswerButtons* m_answer;
};

} // namespace tessivo
