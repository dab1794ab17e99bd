#pragma once

#include <QApplication>

#include <memory>

namespace tessivo {

/// What every program with a window starts with: Qt's application with its name ("Tessivo Demo" belongs to
/// tessivo-demo.desktop), version, icon and drawings. Ends the process with one line on standard error where
/// there is no display.
std::unique_ptr<QApplication> makeApplication(int& argc, char** argv, const QString& name);

} // namespace tessivo
