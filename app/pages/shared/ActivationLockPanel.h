#pragma once

#include "app/controls/Panel.h"
#include "app/model/AppModel.h"

namespace tessivo {

class SegmentedPicker;
class StatusBadge;

/// The check by hand that turning off Find My has turned off Activation Lock, with its answer.
class ActivationLockPanel final : public QWidget {
    Q_OBJECT

public:
    explicit ActivationLockPanel(AppModel& model, QWidget* parent = nullptr);

private:
    void follow();

    AppModel& m_model;
    StatusBadge* m_badge;
    SegmentedPicker* m_answer;
};

} // namespace tessivo
