#pragma once

#include "kit/vocabulary/TestID.h"
#include "kit/vocabulary/UserOverride.h"

#include <QWidget>
#include <optional>
#include <string>

namespace tessivo {

class Checkbox;
class GrowingTextField;

/// The two ways to correct a result: leave the test out of the sale, or note a problem. Knows no model: it is
/// given an override and says what the person made of it. An override with neither flag nor note is absent.
class OverrideControls final : public QWidget {
    Q_OBJECT
public:
    explicit OverrideControls(TestID test, QWidget* parent = nullptr);

    void setOverride(const std::optional<UserOverride>& override);

Q_SIGNALS:
    void changed(const std::optional<tessivo::UserOverride>& override);

private:
    void publish();

    std::optional<std::string> m_problem; ///< as it was given, until the person edits it
    Checkbox* m_notIncluded;
    GrowingTextField* m_note;
};

} // namespace tessivo
