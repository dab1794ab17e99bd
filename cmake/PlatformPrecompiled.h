#pragma once
#include "cmake/KitPrecompiled.h"

#include <QDir>
#include <QGuiApplication>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
