#pragma once

#include "app/controls/Panel.h"
#include "app/look/Accessible.h"
#include "kit/vocabulary/ManualAnswer.h"

namespace tessivo {

class AnswerButtons;
class Button;

/// One side that a tone is played on: a button that plays it and the person's answer. It plays and keeps
/// nothing itself; the owner answers the signals and sets the answer it has stored.
class ToneBlock final : public Panel, public AccessibleTraits {
    Q_OBJECT
public:
    ToneBlock(const QString& title, const QString& works, const QString& problem, QWidget* parent = nullptr);

    void setAnswer(ManualAnswer answer);
    /// What the button does, for a screen reader.
    void setPlayHint(const QString& hint);
    /// A disabled button tells why as its tool tip.
    void setPlayable(bool playable, const QString& whyNot = {});
    QAccessible::Role spokenRole() const override { return QAccessible::Grouping; }

Q_SIGNALS:
    void play();
    /// `unanswered` where the answer was taken back or cleared.
    void answered(tessivo::ManualAnswer answer);

private:
    Button* m_play;
    AnswerButtons* m_answer;
};

} // namespace tessivo
