#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "apps/cli/files/temporary_folder.h"
#include "apps/cli/host/catalog_host.h"
#include "apps/cli/try/control_file_watch.h"
#include "apps/cli/try/damaged_files.h"
#include "apps/cli/try/form_view.h"
#include "apps/cli/try/panels.h"
#include "apps/cli/try/screen.h"
#include "apps/cli/try/try_form.h"
#include "platform/decorators/metered_files.h"

namespace keyscout {

/// A host application on a terminal: an order form with two lookup fields and what a developer
/// wants to see of them. It never writes to the data directory: an update makes a new one and goes
/// over to that. What others publish into the directory it notices and takes up.
class TryHost final : private MessageBox {
 public:
  /// Brings the catalog into service; fails with `std::runtime_error` where that cannot be done.
  TryHost(Files& files, DataDirectory directory);
  ~TryHost() override;

  /// Takes the terminal and returns when the person has had enough.
  void run();

 private:
  /// What there is while the terminal is taken.
  struct Stage;

  MessageBoxButton show(StringView text, std::int32_t style, StringView title) override;

  void draw();
  bool answerAll(Input input);
  bool answer(const Input& input);
  void feed(const std::function<void()>& input);
  void press(const Input& input);
  bool answerHostKey(int key);
  void tell(const std::wstring& title, const std::string& text);
  void showHelp();
  void damageTable();
  void unlock();
  void update();
  bool followPublishing();
  void serve(const DataDirectory& directory);

  DataDirectory given_;  // as it was named, the download perhaps not
  std::string givenPath_;
  std::string title_;
  ControlFileWatch watch_;
  DamagedFiles damaged_;
  MeteredFiles metered_;
  CatalogHost catalog_;
  EventLog log_;
  TryForm form_;
  std::optional<LookupCost> cost_;
  std::chrono::steady_clock::duration answering_{};  // spent in dialogs during a lookup
  bool updateIsWanted_ = false;
  std::unique_ptr<TemporaryFolder> updated_;
  std::unique_ptr<Stage> stage_;
};

}  // namespace keyscout
