#include "apps/cli/try/panels.h"

#include <algorithm>

#include "apps/cli/try/text_columns.h"
#include "base/utf8.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

std::wstring wide(const std::string& text) { return toCodePoints(fromUtf8(text)); }

/// Lines of a panel, a name on the left and its value on the right of each.
class PanelLines {
 public:
  PanelLines(Screen& screen, const Rectangle& area) : screen_(screen), area_(area) {}

  void heading(const std::wstring& text) { put(text, L"", Style::strong, Style::plain); }
  void gap() { ++line_; }
  void flag(const std::wstring& name, Boolean value, Style whenSet = Style::good) {
    put(name, value ? L"yes" : L"no", Style::plain, value ? whenSet : Style::faint);
  }
  void value(const std::wstring& name, const std::string& value) {
    put(name, wide(value), Style::plain, Style::strong);
  }

 private:
  void put(const std::wstring& name, const std::wstring& value, Style nameStyle, Style valueStyle) {
    const int row = area_.row + 1 + line_++;
    if (row >= area_.row + area_.rows - 1) return;
    const int width = area_.columns - 4;
    const int valueWidth = std::min(columnsOf(value), width);
    screen_.text(row, area_.column + 2, width - valueWidth, name, nameStyle);
    screen_.text(row, area_.column + 2 + width - valueWidth, valueWidth, value, valueStyle);
  }

  Screen& screen_;
  Rectangle area_;
  int line_ = 0;
};

/// How many tables the brand index made it possible not to open. The brand index itself is one more
/// file that is looked at.
std::uint64_t tablesPassedOver(const MeteredFiles::Reading& reading) {
  return reading.stamps == 0 ? 0 : reading.stamps - 1;
}

struct HostKey {
  std::wstring key;
  std::wstring meaning;
};

const HostKey hostKeys[] = {{L"F1", L"Help"},   {L"F2", L"Damage"}, {L"F3", L"Lock"},
                            {L"F4", L"Unlock"}, {L"F5", L"Update"}, {L"F10", L"Quit"}};

}  // namespace

void drawEvents(Screen& screen, const Rectangle& area, const EventLog& log) {
  screen.frame(area, L"Events", Style::frame);
  constexpr int sourceColumns = 5;
  // The longest name is told whole where its arguments still have room.
  const int eventColumns = std::clamp(area.columns - 4 - sourceColumns - 20, 15, 21);
  const int rows = area.rows - 2;
  const int count = std::min(rows, static_cast<int>(log.lines().size()));
  for (int i = 0; i < count; ++i) {
    const auto& line = log.lines()[log.lines().size() - static_cast<std::size_t>(count - i)];
    const int row = area.row + 1 + i;
    const int column = area.column + 2;
    screen.text(row, column, sourceColumns, wide(line.source), Style::faint);
    screen.text(row, column + sourceColumns, eventColumns, wide(line.event), Style::plain);
    screen.text(row, column + sourceColumns + eventColumns,
                area.columns - 4 - sourceColumns - eventColumns, wide(line.arguments),
                Style::strong);
  }
}

void drawState(Screen& screen, const Rectangle& area, TryForm& form,
               const std::optional<LookupCost>& cost) {
  screen.frame(area, L"State", Style::frame);
  PanelLines lines{screen, area};
  const keyscoutModule& module = keyscoutModule::ofThisThread();
  lines.heading(L"Shared");
  lines.flag(L"isInitialized", module.isInitialized);
  lines.flag(L"Authenticated", module.isKeyscoutAuthenticated);
  lines.flag(L"KeyscoutEnabled", module.KeyscoutEnabled);
  lines.flag(L"KeyscoutLocked", module.KeyscoutLocked, Style::bad);
  lines.value(L"Tables", std::to_string(module.catalogTableCount));

  lines.heading(L"Last lookup");
  lines.value(L"Files opened", cost ? std::to_string(cost->reading.files) : "-");
  lines.value(L"Tables skipped", cost ? std::to_string(tablesPassedOver(cost->reading)) : "-");
  lines.value(L"Bytes read", cost ? std::to_string(cost->reading.bytes) : "-");
  lines.value(L"Microseconds", cost ? std::to_string(cost->time.count()) : "-");

  lines.heading(L"Field");
  LookupField* const field = form.focusedField();
  if (!field) return;
  const LookupFields& lookup = field->control().lookupFields();
  lines.flag(L"isListShowing", field->control().isListShowing());
  lines.flag(L"listLoaded", lookup.listLoaded);
  lines.flag(L"endOfCatalogReached", lookup.endOfCatalogReached);
  lines.flag(L"tableLoadPending", lookup.tableLoadPending, Style::bad);
  lines.flag(L"suppressAccept", field->control().fields().suppressAccept);
  lines.value(L"Table", std::to_string(lookup.currentTableIndex));
}

void drawTitle(Screen& screen, const Rectangle& area, const std::string& catalog) {
  const std::wstring name = L" Keyscout  ";
  const int nameColumns = columnsOf(name);
  screen.text(area.row, area.column, nameColumns, name, Style::barKey);
  screen.text(area.row, area.column + nameColumns, area.columns - nameColumns, wide(catalog),
              Style::bar);
}

void drawKeys(Screen& screen, const Rectangle& area) {
  screen.text(area.row, area.column, area.columns, L"", Style::bar);
  int column = area.column;
  for (const HostKey& key : hostKeys) {
    const int keyColumns = columnsOf(key.key);
    screen.text(area.row, column, keyColumns, key.key, Style::barKey);
    screen.text(area.row, column + keyColumns, columnsOf(key.meaning) + 1, L' ' + key.meaning,
                Style::bar);
    column += keyColumns + columnsOf(key.meaning) + 3;
  }
}

}  // namespace keyscout
