#pragma once

#include <QWidget>

namespace tessivo {

/// The symbol, title and, for a test, the badge at the head of a page.
class PageHeader final : public QWidget {
    Q_OBJECT
public:
    PageHeader(const QString& title, const QString& symbol, QWidget* trailing = nullptr,
               QWidget* parent = nullptr);
};

} // namespace tessivo
