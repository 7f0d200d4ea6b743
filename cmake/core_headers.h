#pragma once

// Compiled once for all libraries, see `orr_precompile`. A file still includes what it uses.
#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <utility>
