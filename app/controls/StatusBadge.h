#pragma once

#include "app/controls/Capsule.h"
#include "kit/vocabulary/TestStatus.h"

namespace tessivo {

/// A status as symbol and word on a capsule of its colour.
class StatusBadge final : public Capsule {
    Q_OBJECT
public:
    explicit StatusBadge(TestStatus status = TestStatus::notRun, QWidget* parent = nullptr);

    TestStatus status() const { return m_status; }
    void setStatus(TestStatus status);

private:
    TestStatus m_status;
};

} // namespace tessivo
