#pragma once

#include "app/controls/StatusColors.h"
#include "app/controls/SymbolView.h"

#include <optional>

namespace tessivo {

/// A status as its symbol alone, named by its word; without a status its room stays empty.
class StatusGlyph final : public SymbolView {
    Q_OBJECT
public:
    explicit StatusGlyph(int size, QWidget* parent = nullptr)
        : SymbolView({}, size, ColorRole::grayGlyph, parent) {}

    std::optional<TestStatus> status() const { return m_status; }
    void setStatus(std::optional<TestStatus> status) {
        m_status = status;
        setSymbol(status ? QString::fromUtf8(symbol(*status)) : QString(),
                  status ? glyphColor(*status) : ColorRole::grayGlyph);
        setAccessibleName(status ? QString::fromUtf8(label(*status)) : QString());
    }

private:
    std::optional<TestStatus> m_status;
};

} // namespace tessivo
