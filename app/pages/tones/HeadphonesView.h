#pragma once

#include "app/layout/Column.h"
#include "app/model/Poll.h"
#include "app/pages/PageContext.h"
#include "app/pages/frame/LiveContent.h"
#include "app/readers/TonePlayer.h"
#include "kit/hardware/AudioOutputInfo.h"

namespace tessivo {

class SymbolView;
class TextLabel;
class ToneBlock;

/// The headphone jack's test: watches the jack while it is open and plays a tone to each ear through it, and
/// through nothing else.
class HeadphonesView final : public LiveContent {
    Q_OBJECT

public:
    static const char* const how;

    explicit HeadphonesView(const PageContext& context, QWidget* parent = nullptr);

private:
    void appear() override;
    void disappear() override;
    QWidget* makeStatus();
    ToneBlock* addBlock(const QString& title, const QString& side, ManualAnswer HeadphoneTest::* answer,
                        bool left);
    void play(bool left);
    void scan();
    void follow();

    AppModel& m_model;
    std::optional<TonePlayer> m_player;    ///< while the page is open
    std::optional<AudioOutputInfo> m_jack; ///< the last one seen
    SymbolView* m_symbol;
    TextLabel* m_status;
    TextLabel* m_output;
    ToneBlock* m_left;
    ToneBlock* m_right;
    std::unique_ptr<Poll> m_poll;
};

} // namespace tessivo
