#include "apps/cli/try/layout.h"

#include <algorithm>

#include "lookup/list_limits.h"

namespace keyscout {
namespace {

constexpr int stateColumns = 27;
constexpr int formRows = 8;
constexpr int labelColumns = 12;

}  // namespace

Layout::Layout(int rows, int columns) : fits(rows >= minRows && columns >= minColumns) {
  const int left = columns - stateColumns;
  title = {0, 0, 1, columns};
  form = {1, 0, formRows, left};
  events = {1 + formRows, 0, rows - 2 - formRows, left};
  state = {1, left, rows - 2, stateColumns};
  keys = {rows - 1, 0, 1, columns};

  labelColumn = form.column + 2;
  labelWidth = labelColumns;
  const int fieldColumn = labelColumn + labelColumns;
  const int fieldColumns = left - fieldColumn - 2;
  part = {form.row + 1, fieldColumn, 1, fieldColumns};
  replaces = {form.row + 3, fieldColumn, 1, fieldColumns};
  brand = {form.row + 5, fieldColumn, 1, fieldColumns};
  authorized = {form.row + 6, fieldColumn, 1, fieldColumns};
}

Rectangle Layout::dropDown(const Rectangle& field, int entries, int widestEntry) const {
  constexpr int frame = 2;
  const int room = keys.row - field.row - 1;
  const int rows = std::min({entries, int{ListLimits::page}, room - frame}) + frame;
  const int columns = std::min(std::max(field.columns, widestEntry) + frame, title.columns);
  return {field.row + 1, std::min(field.column - 1, title.columns - columns), rows, columns};
}

}  // namespace keyscout
