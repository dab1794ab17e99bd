#pragma once

#include "app/layout/Column.h"
#include "app/pages/PageContext.h"
#include "app/pages/display/ColorScreen.h"
#include "app/pages/frame/LiveContent.h"

class QScreen;

namespace tessivo {

class AnswerButtons;
class ColorSwatch;
class Picker;
class TextLabel;

/// The content of the display page: the colours, the button that shows them over a whole screen, and what
/// the person saw. A run ends when the page is hidden or goes.
class DisplayTestView final : public LiveContent {
    Q_OBJECT
public:
    /// The screens there are now, the main one first.
    using Screens = std::function<QList<QScreen*>()>;

    explicit DisplayTestView(const PageContext& context, Screens screens = nullptr,
                             QWidget* parent = nullptr);

    /// The page's instructions.
    static const char* const how;

private:
    /// The window may be minimised while the colours show on another screen.
    void disappear() override { m_colorScreen.close(); }
    QWidget* makeColors();
    QWidget* makeQuestion();
    void listScreens();
    void showColors();
    void follow();

    AppModel& m_model;
    Screens m_screens;
    ColorScreen m_colorScreen;
    qsizetype m_screenIndex = 0;
    std::vector<ColorSwatch*> m_swatches; ///< in the order of DisplayTest::colors
    QWidget* m_on = nullptr;
    Picker* m_picker = nullptr;
    AnswerButtons* m_answer = nullptr;
    TextLabel* m_describe = nullptr;
};

} // namespace tessivo
