#include "app/pages/Pages.h"

#include "app/controls/TestPage.h"

namespace tessivo {

QWidget* makePage(Page page, const PageContext& context, QWidget* parent) {
    switch (page) {
    default:
        return new QWidget(parent);
    }
}

} // namespace tessivo
