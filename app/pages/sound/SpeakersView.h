#pragma once

#include "app/controls/WrapRow.h"
#include "app/model/Poll.h"
#include "app/pages/PageContext.h"
#include "app/readers/TonePlayer.h"

namespace tessivo {

class TextLabel;
class ToneBlock;

/// The speaker test: a tone on each side of the system's output, or one tone where the output has a single
/// channel, and what the person heard. While it is open it follows the output.
class SpeakersView final : public Column {
    Q_OBJECT

public:
    static const char* const how;

    explicit SpeakersView(const PageContext& context, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    ToneBlock* addBlock(const char* title, ManualAnswer SpeakerTest::*answer, bool left, bool right);
    void play(bool left, bool right);
    void readOutput();
    void follow();

    AppModel& m_model;
    std::optional<TonePlayer> m_player; ///< while the page is open
    TextLabel* m_output;
    ToneBlock* m_left;
    ToneBlock* m_right;
    ToneBlock* m_both;
    TextLabel* m_oneChannel;
    std::unique_ptr<Poll> m_poll;
};

} // namespace tessivo
