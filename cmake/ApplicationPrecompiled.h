#pragma once
#include "cmake/KitPrecompiled.h"

#include <QtCore/QtCore>
#include <QtGui/QtGui>
#include <QtWidgets/QtWidgets>
