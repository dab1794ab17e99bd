#include "app/pages/Pages.h"

#include "app/model/QtText.h"
#include "app/pages/OverviewView.h"
#include "app/pages/cameras/CamerasView.h"
#include "app/pages/display/DisplayTestView.h"
#include "app/pages/frame/TestPage.h"
#include "app/pages/handover/HandoverView.h"
#include "app/pages/hardware/BatteryView.h"
#include "app/pages/hardware/EthernetView.h"
#include "app/pages/hardware/PortsView.h"
#include "app/pages/hardware/StorageView.h"
#include "app/pages/history/HistoryView.h"
#include "app/pages/keyboard/KeyboardTestView.h"
#include "app/pages/microphones/MicrophonesView.h"
#include "app/pages/report/PickupView.h"
#include "app/pages/report/ReportPage.h"
#include "app/pages/tones/HeadphonesView.h"
#include "app/pages/tones/SpeakersView.h"
#include "app/pages/trackpad/TrackpadTestView.h"

namespace tessivo {

namespace {

/// The frame of a test's page with the test's own view in it.
template <class View>
QWidget* testPage(TestID test, const PageContext& context, QWidget* parent) {
    return new TestPage(context.model, test, qt(View::how), new View(context), parent);
}

} // namespace

QWidget* makePage(Page page, const PageContext& context, QWidget* parent) {
    switch (page) {
    case Page::overview:
        return new OverviewView(context.model, parent);
    case Page::keyboard:
        return testPage<KeyboardTestView>(TestID::keyboard, context, parent);
    case Page::trackpad:
        return testPage<TrackpadTestView>(TestID::trackpad, context, parent);
    case Page::display:
        return testPage<DisplayTestView>(TestID::display, context, parent);
    case Page::speakers:
        return testPage<SpeakersView>(TestID::speakers, context, parent);
    case Page::headphones:
        return testPage<HeadphonesView>(TestID::headphones, context, parent);
    case Page::microphones:
        return testPage<MicrophonesView>(TestID::microphones, context, parent);
    case Page::cameras:
        return testPage<CamerasView>(TestID::cameras, context, parent);
    case Page::ports:
        return testPage<PortsView>(TestID::ports, context, parent);
    case Page::ethernet:
        return testPage<EthernetView>(TestID::ethernet, context, parent);
    case Page::storage:
        return testPage<StorageView>(TestID::storage, context, parent);
    case Page::battery:
        return testPage<BatteryView>(TestID::battery, context, parent);
    case Page::report:
        return new ReportPage(context, parent);
    case Page::pickup:
        return new PickupView(context, parent);
    case Page::history:
        return new HistoryView(context, parent);
    case Page::handover:
        return new HandoverView(context, parent);
    }
    return nullptr;
}

} // namespace tessivo
