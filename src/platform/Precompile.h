// Headers that nearly every source of the core reads; compiled once.
#pragma once

#include <QtCore/QtCore>
#include <QtSql/QtSql>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
