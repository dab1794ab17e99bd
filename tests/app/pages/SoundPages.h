#pragma once

#include "tests/app/pages/PageFixture.h"

#include <QAbstractButton>
#include <thread>

namespace tessivo::pagetest {

using namespace std::chrono_literals;

/// Names that devices have and nobody expects.
inline const std::vector<std::string> oddNames = {
    "Line\nfeed", "\xD7\x9E\xD7\x99\xD7\xA7\xD7\xA8\xD7\x95\xD7\xA4\xD7\x95\xD7\x9F (USB)",
    std::string(10'000, 'x'), "", "bad \xff byte"};

/// A page of blocks or rows, each a group named by its side or its device.
class SoundFixture : public PageFixture {
protected:
    /// With the answer to the question for access, where the page asks.
    void open(Page page) {
        PageFixture::open(page);
        pass(0s);
    }
    QAbstractButton* button(const std::string& group, const std::string& name) {
        return findByName<QAbstractButton>(view.get(), QString::fromStdString(group),
                                           QString::fromStdString(name));
    }
    bool press(const std::string& group, const std::string& name) { return click(button(group, name)); }
    using PageFixture::press;
    bool shown(const std::string& text) { return PageFixture::shown(text.c_str()); }

    /// The capture queue opens and closes devices in its own time; "open" counts from the attempt on.
    bool opened(const std::string& device) { return becomes(device, true); }
    bool released(const std::string& device) { return becomes(device, false); }
    /// Whether everything has a name, and room, at the first width and the smallest.
    void expectWhole() {
        for (const int width : {950, 620}) {
            view->resize(width, 752);
            settle();
            EXPECT_EQ(clippedControls(view.get()).join('\n').left(1000).toStdString(), "") << width;
        }
        EXPECT_EQ(unnamedControls(view.get()).join('\n').toStdString(), "");
    }

private:
    bool becomes(const std::string& device, bool open) {
        for (int i = 0; i < 2000 && controls->isOpen(device) != open; ++i)
            std::this_thread::sleep_for(1ms);
        return controls->isOpen(device) == open;
    }
};

} // namespace tessivo::pagetest
