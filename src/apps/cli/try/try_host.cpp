#include "apps/cli/try/try_host.h"

#include <stdexcept>

#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/packing/pack_catalog.h"
#include "apps/cli/terminal/interruption.h"
#include "apps/cli/try/dialog.h"
#include "apps/cli/try/text_columns.h"
#include "base/utf8.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

namespace HostKeys {
constexpr int help = 1;
constexpr int damage = 2;
constexpr int lock = 3;
constexpr int unlock = 4;
constexpr int update = 5;
constexpr int quit = 10;
}  // namespace HostKeys

CatalogHost& started(CatalogHost& catalog, const DataDirectory& directory) {
  catalog.start(directory);
  return catalog;
}

/// The lines of a message, which come with line ends of either kind.
std::vector<std::wstring> linesOf(StringView text) {
  std::vector<std::wstring> lines;
  for (std::size_t end = 0; end != text.npos;) {
    end = text.find(u'\n');
    StringView line = text.substr(0, end);
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    lines.push_back(toCodePoints(line));
    text.remove_prefix(end == text.npos ? 0 : end + 1);
  }
  return lines;
}

}  // namespace

struct TryHost::Stage {
  Screen screen;
  FormView view;

  explicit Stage(TryForm& form) : view(screen, form) {}
};

TryHost::TryHost(Files& files, DataDirectory directory)
    : given_(std::move(directory)),
      givenPath_(pathText(given_.path)),
      title_(givenPath_),
      watch_(given_.path),
      damaged_(files),
      metered_(damaged_),
      catalog_(metered_, *this),
      form_(started(catalog_, withDownloadFound(given_)), log_,
            [this] { updateIsWanted_ = true; }) {}

TryHost::~TryHost() = default;

void TryHost::run() {
  Interruption::watch();
  stage_ = std::make_unique<Stage>(form_);
  // However this ends, the terminal is given back before anybody writes to it.
  const struct TerminalGuard {
    std::unique_ptr<Stage>& stage;
    ~TerminalGuard() { stage.reset(); }
  } guard{stage_};
  for (;;) {
    draw();
    stage_->screen.show();
    Input input;
    do input = stage_->screen.read();
    while (!followPublishing() && input.kind == Input::Kind::nothing);
    if (!answerAll(input)) return;
  }
}

/// Takes in what is waiting before the screen is drawn again, which takes longer than most of it;
/// false when the person wants to leave.
bool TryHost::answerAll(Input input) {
  constexpr std::chrono::milliseconds drawInterval{100};
  const auto end = std::chrono::steady_clock::now() + drawInterval;
  while (input.kind != Input::Kind::nothing) {
    if (!answer(input)) return false;
    if (std::exchange(updateIsWanted_, false)) update();
    if (std::chrono::steady_clock::now() > end) break;
    input = stage_->screen.readWaiting();
  }
  return true;
}

void TryHost::draw() {
  Screen& screen = stage_->screen;
  const Layout layout{screen.rows(), screen.columns()};
  screen.clear();
  if (!layout.fits) {
    // Two short lines, since it is narrow screens that have to show them.
    screen.text(0, 0, screen.columns(), L"Keyscout needs", Style::plain);
    screen.text(1, 0, screen.columns(), L"60 columns and 20 rows.", Style::plain);
    return;
  }
  drawTitle(screen, layout.title, title_);
  stage_->view.drawForm(layout);
  drawEvents(screen, layout.events, log_);
  drawState(screen, layout.state, form_, cost_);
  drawKeys(screen, layout.keys);
  stage_->view.drawList(layout);
}

/// False when the person wants to leave.
bool TryHost::answer(const Input& input) {
  const Layout layout{stage_->screen.rows(), stage_->screen.columns()};
  switch (input.kind) {
    case Input::Kind::key: feed([&] { form_.press(input); }); break;
    case Input::Kind::paste: feed([&] { form_.paste(input.text); }); break;
    case Input::Kind::host: return answerHostKey(input.hostKey);
    case Input::Kind::wheelUp:
    case Input::Kind::wheelDown: {
      if (!form_.openField()) break;
      Input key;
      key.keyCode = input.kind == Input::Kind::wheelUp ? KeyCodes::up : KeyCodes::down;
      feed([&] { form_.press(key); });
      break;
    }
    case Input::Kind::press:
    case Input::Kind::release: feed([&] { press(input); }); break;
    case Input::Kind::nothing:
    case Input::Kind::resize: break;
  }
  return true;
}

/// A press chooses what it hits; the text boxes also get to know of the button's release.
void TryHost::press(const Input& input) {
  const Layout layout{stage_->screen.rows(), stage_->screen.columns()};
  const bool isPress = input.kind == Input::Kind::press;
  if (const auto entry = stage_->view.entryAt(layout, input.row, input.column)) {
    if (isPress) form_.clickEntry(*entry);
    return;
  }
  const std::pair<Rectangle, TryForm::Stop> boxes[] = {{layout.part, TryForm::Stop::part},
                                                       {layout.replaces, TryForm::Stop::replaces},
                                                       {layout.brand, TryForm::Stop::brand}};
  for (const auto& [box, stop] : boxes) {
    if (!box.contains(input.row, input.column)) continue;
    if (isPress) form_.moveFocus(stop);
    if (form_.focus() != stop) return;
    form_.mouse(isPress ? MouseReport::down : MouseReport::up);
    if (!isPress) form_.mouse(MouseReport::click);
    return;
  }
  if (const auto choice = stage_->view.choiceAt(layout, input.row, input.column);
      choice && isPress) {
    form_.moveFocus(TryForm::Stop::authorized);
    form_.toggleChoice(*choice);
  }
}

/// Runs what a person does to the form and takes the time where a lookup came of it.
void TryHost::feed(const std::function<void()>& input) {
  metered_.reset();
  answering_ = {};
  const auto begin = std::chrono::steady_clock::now();
  input();
  const auto time = std::chrono::steady_clock::now() - begin - answering_;
  if (metered_.reading().files == 0) return;
  cost_ = {metered_.reading(), std::chrono::duration_cast<std::chrono::microseconds>(time)};
}

bool TryHost::answerHostKey(int key) {
  switch (key) {
    case HostKeys::help: showHelp(); break;
    case HostKeys::damage: damageTable(); break;
    case HostKeys::lock: form_.part().control().lockKeyscout(); break;
    case HostKeys::unlock: unlock(); break;
    case HostKeys::update: updateIsWanted_ = true; break;
    case HostKeys::quit: return false;
    default: break;
  }
  return true;
}

MessageBoxButton TryHost::show(StringView text, std::int32_t /*style*/, StringView title) {
  const auto begin = std::chrono::steady_clock::now();
  Dialog dialog{stage_->screen, [this] { draw(); }, toCodePoints(title), linesOf(text)};
  const bool isYes = dialog.choose({L"Yes", L"No"}) == 0;
  answering_ += std::chrono::steady_clock::now() - begin;
  return isYes ? MessageBoxButton::yes : MessageBoxButton::no;
}

void TryHost::tell(const std::wstring& title, const std::string& text) {
  Dialog{stage_->screen, [this] { draw(); }, title, linesOf(fromUtf8(text))}.choose({L"OK"});
}

void TryHost::showHelp() {
  tell(L"Help",
       "Type into Part or Replaces; the list opens below.\n"
       "Down     into the list; on the last entry: more\n"
       "Up       in the list; on the first entry: back\n"
       "Enter    accept the entry; so does a click\n"
       "Esc      close the list; so does Alt+Up\n"
       "Tab      the next field\n"
       "Space    choose an authorized brand; none is all\n"
       "\n"
       "F2 makes the list's table unreadable, so the next\n"
       "lookup in it fails. F5, or Yes to the question\n"
       "then, packs the catalog anew into a directory of\n"
       "its own, goes over to that and unlocks. The one\n"
       "named is never written to; what is published into\n"
       "it meanwhile is noticed and served.");
}

void TryHost::damageTable() {
  const keyscoutModule& module = keyscoutModule::ofThisThread();
  const LookupField* const field = form_.focusedField();
  const std::int16_t table =
      field ? field->control().lookupFields().currentTableIndex : std::int16_t{0};
  const String name{module.getTableNumber(std::max<std::int16_t>(table, 0))};
  damaged_.damage(module.KeyscoutDirectory + name + u".txt");
  log_.add("host", "damaged", toUtf8(name) + ".txt");
}

/// After new data is in place: reads it, and forgets the places of the old.
void TryHost::unlock() {
  try {
    const bool isUnlocked = static_cast<bool>(catalog_.controller().tryToUnlock());
    log_.add("host", "tryToUnlock", isUnlocked ? "true" : "false");
    if (!isUnlocked)
      return tell(L"Unlock", "The catalog cannot be loaded: " + catalog_.takeFailure());
    catalog_.controller().resetLastTableNumber();
    log_.add("host", "resetLastTableNumber");
    form_.takeInCatalog();
  } catch (const Error& refusal) {
    log_.add("host", "tryToUnlock", "refused");
    tell(L"Unlock", refusal.what());
  }
}

/// Points the controls to a directory in which everything is in place.
void TryHost::serve(const DataDirectory& directory) {
  damaged_.repair();
  catalog_.configure(directory);
  log_.add("host", "KeyscoutDirectory", pathText(directory.path));
  unlock();
}

/// Packs the catalog's download into a directory of its own and goes over to that. The directory
/// that is being served is left alone: the index in memory would no longer fit its tables.
void TryHost::update() {
  try {
    auto folder = std::make_unique<TemporaryFolder>("keyscout-try");
    Dialog dialog{stage_->screen, [this] { draw(); }, L"Update", {L"The catalog is packed anew."}};
    DataDirectory packed = withDownloadFound(given_);
    if (packed.downloadFile.empty())
      throw std::runtime_error("there is no download in " + givenPath_ + '.');
    PackOptions options;
    options.download = packed.path / packed.downloadFile;
    options.directory = folder->path();
    options.indexName = packed.indexFile;
    auto nextDraw = std::chrono::steady_clock::now();
    packCatalog(options, [&](std::string_view, std::uint64_t done, std::uint64_t total) {
      Interruption::check();
      const auto now = std::chrono::steady_clock::now();
      if (now < nextDraw) return;
      constexpr std::chrono::milliseconds drawInterval{50};
      nextDraw = now + drawInterval;
      dialog.showProgress(static_cast<double>(done) /
                          static_cast<double>(std::max<std::uint64_t>(total, 1)));
    });
    log_.add("host", "packed", packed.downloadFile);
    packed.path = folder->path();
    title_ = "packed anew from " + givenPath_;
    serve(packed);
    updated_ = std::move(folder);
  } catch (const std::exception& failure) {
    Interruption::check();
    tell(L"Update", "The update failed: " + sentenceOf(failure));
  }
}

/// True where somebody has published into the directory. While that goes on lookups are locked;
/// when all is in place the new catalog is served.
bool TryHost::followPublishing() {
  if (!watch_.hasChanged()) return false;
  log_.add("host", "catcontrol.txt", "changed");
  title_ = givenPath_;
  try {
    const DataDirectory directory = withDownloadFound(given_);
    catalog_.configure(directory);
    if (catalog_.controller().checkCatalogControlFile()) {
      serve(directory);
      updated_.reset();
      return true;
    }
  } catch (const Interruption&) {
    throw;
  } catch (const std::exception&) {
    // Not ready; the control file will change once more.
  }
  title_ += " (being published)";
  form_.part().control().lockKeyscout();
  log_.add("host", "lockKeyscout");
  return true;
}

}  // namespace keyscout
