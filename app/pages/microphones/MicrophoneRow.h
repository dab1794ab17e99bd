#pragma once

#include "app/look/Accessible.h"
#include "kit/session/MicReading.h"

#include <QWidget>
#include <optional>

namespace tessivo {

class Button;
class LevelBar;
class SymbolView;
class TextLabel;

/// One microphone: its name and verdict, its level, and the button that listens to it or stops.
class MicrophoneRow final : public QWidget, public AccessibleTraits {
    Q_OBJECT

public:
    explicit MicrophoneRow(const QString& name, QWidget* parent = nullptr);

    /// Null where the session has none of this microphone.
    void setReading(const MicReading* reading);
    /// The level in dB while this microphone is the one that listens.
    void setLevel(std::optional<double> level);
    QAccessible::Role spokenRole() const override { return QAccessible::Grouping; }

Q_SIGNALS:
    void toggled();

private:
    QWidget* makeTexts(const QString& name);

    SymbolView* m_heard;
    TextLabel* m_verdict;
    LevelBar* m_meter;
    Button* m_button;
};

} // namespace tessivo
