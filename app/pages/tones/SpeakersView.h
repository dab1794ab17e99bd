#pragma once

#include "app/layout/Column.h"
#include "app/pages/PageContext.h"
#include "app/pages/frame/LiveContent.h"
#include "app/readers/TonePlayer.h"

#include <array>

namespace tessivo {

class TextLabel;
class ToneBlock;

/// The speaker test: a tone on each side of the system's output, or one tone where the output has a single
/// channel, and what the person heard. The output is read when the page appears and when a tone is played,
/// not in between: headphones plugged in for another test change nothing here.
class SpeakersView final : public LiveContent {
    Q_OBJECT

public:
    static const char* const how;

    explicit SpeakersView(const PageContext& context, QWidget* parent = nullptr);

private:
    void appear() override;
    void disappear() override;
    enum class Count { read, onlyWithoutAnswers };

    /// One tone with its answer.
    struct Side {
        const char* title;
        ManualAnswer SpeakerTest::* answer;
        bool left;
        bool right;
        ToneBlock* block = nullptr;
        std::optional<std::string> heardThrough = {}; ///< the output that the answer was given for
    };

    void add(Side& side);
    using Column::add;
    void play(const Side& side);
    void readUntilCounted();
    void readOutput(Count count);
    QString answeredElsewhere() const;
    void follow();

    AppModel& m_model;
    std::optional<TonePlayer> m_player; ///< while the page is open
    std::unique_ptr<Scheduled> m_retry;
    std::array<Side, 3> m_sides;
    bool m_hasRecord = false;
    TextLabel* m_output;
    TextLabel* m_elsewhere;
    TextLabel* m_oneChannel;
};

} // namespace tessivo
