#include "app/pages/Pages.h"

#include "app/controls/TestPage.h"
#include "app/pages/OverviewView.h"

namespace tessivo {

namespace {

/// The frame of a test's page, without controls of its own.
QWidget* testPage(TestID test, const PageContext& context, QWidget* parent) {
    return new TestPage(context.model, test, {}, new Column, parent);
}

/// The head of a page that speaks for no test.
QWidget* headPage(Page page, QWidget* parent) {
    auto* view = new ScrollColumn(parent);
    view->add(new PageHeader(QString::fromUtf8(title(page)), QString::fromUtf8(symbol(page))));
    return view;
}

} // namespace

QWidget* makePage(Page page, const PageContext& context, QWidget* parent) {
    switch (page) {
    case Page::overview:
        return new OverviewView(context.model, parent);
    case Page::keyboard:
        return testPage(TestID::keyboard, context, parent);
    case Page::trackpad:
        return testPage(TestID::trackpad, context, parent);
    case Page::display:
        return testPage(TestID::display, context, parent);
    case Page::speakers:
        return testPage(TestID::speakers, context, parent);
    case Page::headphones:
        return testPage(TestID::headphones, context, parent);
    case Page::microphones:
        return testPage(TestID::microphones, context, parent);
    case Page::cameras:
        return testPage(TestID::cameras, context, parent);
    case Page::ports:
        return testPage(TestID::ports, context, parent);
    case Page::ethernet:
        return testPage(TestID::ethernet, context, parent);
    case Page::storage:
        return testPage(TestID::storage, context, parent);
    case Page::battery:
        return testPage(TestID::battery, context, parent);
    case Page::report:
        return headPage(page, parent);
    case Page::pickup:
        return headPage(page, parent);
    case Page::history:
        return headPage(page, parent);
    case Page::handover:
        return headPage(page, parent);
    }
    return nullptr;
}

} // namespace tessivo
