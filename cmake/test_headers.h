#pragma once

// Compiled once for all tests, see `orr_precompile`. A file still includes what it uses.
#include "core_headers.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QMultiHash>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <random>
#include <vector>
