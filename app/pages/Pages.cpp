#include "app/pages/Pages.h"

#include "app/controls/TestPage.h"
#include "app/pages/hardware/BatteryView.h"
#include "app/pages/hardware/EthernetView.h"
#include "app/pages/hardware/PortsView.h"
#include "app/pages/hardware/StorageView.h"

namespace tessivo {

namespace {

/// The frame of a test with the test's own view in it.
template <class View>
QWidget* testPage(TestID test, const PageContext& context, QWidget* parent) {
    return new TestPage(context.model, test, QString::fromUtf8(View::how), new View(context), parent);
}

} // namespace

QWidget* makePage(Page page, const PageContext& context, QWidget* parent) {
    switch (page) {
    case Page::ports:
        return testPage<PortsView>(TestID::ports, context, parent);
    case Page::ethernet:
        return testPage<EthernetView>(TestID::ethernet, context, parent);
    case Page::storage:
        return testPage<StorageView>(TestID::storage, context, parent);
    case Page::battery:
        return testPage<BatteryView>(TestID::battery, context, parent);
    default:
        return new QWidget(parent);
    }
}

} // namespace tessivo
