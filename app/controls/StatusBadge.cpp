#include "app/controls/StatusBadge.h"
#include "app/controls/StatusColors.h"

namespace tessivo {
namespace {

Capsule::Look look(TestStatus status) {
    const ColorRole ink = wordColor(status);
    return {QString::fromUtf8(symbol(status)), QString::fromUtf8(label(status)), ink, ink, ink, 12};
}

} // namespace

StatusBadge::StatusBadge(TestStatus status, QWidget* parent)
    : Capsule(Capsule::badge, look(status), parent), m_status(status) {}

void StatusBadge::setStatus(TestStatus status) {
    if (status == m_status) return;
    m_status = status;
    setLook(look(status));
}

} // namespace tessivo
