// Headers that nearly every screen reads; compiled once.
#pragma once

#include <QtSql/QtSql>
#include <QtWidgets/QtWidgets>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
