#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/plain_catalog.h"

namespace keyscout::test {

/// Any failure; which number it has is for other tests.
struct PlainFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// `text` in capitals: how texts are compared where letter case does not matter.
std::string capitals(std::string text);

class PlainField;

/// What all fields of a host share, and the focus of its form. Everything here and in `PlainField`
/// is written for its plainness: tables are read from their first line, lists are vectors, texts
/// are ASCII.
struct PlainForm {
  enum class Place { text, list };

  const PlainCatalog* catalog = nullptr;
  bool enabled = true;
  bool locked = false;
  bool restartsSearch = false;                   // `lastTableNumber` is -1
  std::optional<std::set<std::string>> allowed;  // brands in capitals; absent or empty for all
  bool userSaysYes = false;
  int messages = 0;

  PlainField* focused = nullptr;
  Place place = Place::text;

  /// Runs what answers a report. Changes of the focus are told when the outermost is done.
  void handle(const std::function<void()>& answer);
  void moveFocus(PlainField* field, Place to);

 private:
  friend class PlainField;

  std::deque<std::function<void()>> waiting_;
  int depth_ = 0;
};

/// A control with its two widgets.
class PlainField {
 public:
  struct List {
    std::vector<std::string> entries;
    int selected = -1;
    bool isDropped = false;
    bool redraws = true;
  };

  explicit PlainField(PlainForm& form) : form_(form) {}

  // What a person does. Keys go to the place that has the focus.

  static void press(PlainForm& form, int key, int shift);
  static void type(PlainForm& form, char character);
  static void paste(PlainForm& form, const std::string& text);
  void click(int entry);
  void releaseMouse();

  // What the host does. `doit` fails where the widgets or the records do.

  void setText(const std::string& text);
  void doit();
  void hideList();

  // What can be seen. `events` are those since they were last taken.

  std::string text;
  std::size_t caret = 0;
  std::optional<List> list;
  std::string brand;
  bool isListShowing = false;
  bool listLoaded = false;
  bool tableLoadPending = false;
  bool endOfCatalogReached = false;
  bool suppressAccept = false;
  int currentTable = 0;
  std::vector<std::string> events;

 private:
  friend struct PlainForm;

  // The reports
  void textGotFocus();
  void textLostFocus();
  void focusLeft();
  void textChanged();
  void textKeyDown(int key, int shift);
  void textKeyUp(int key, int shift);
  void listKeyDown(int key, int shift);
  void listClicked();

  // The widgets
  List& mustHaveList();
  void removeList();
  void writeText(const std::string& newText);
  void select(int entry);
  void moveSelection(int key);
  void dropDown(bool drops);

  // The lookup
  void lookUp(std::string typed);
  void extend(const std::string& number);
  int findTable(const std::string& key);
  void load(const std::string& key, std::size_t limit);
  void offer(const std::string& line);
  bool brandIsUnknown() const;
  void showList();
  void accept();
  void lookupFailed();
  void handlerFailed();
  void answering(const std::function<void()>& body);

  PlainForm& form_;
  std::map<std::string, std::string> brandOf_;  // the records: brands by number in capitals
  std::map<std::string, std::string> numberOf_;
  std::string lastText_;
  int searchStart_ = 0;
  bool skipNextLookup_ = false;
  bool suppressKeyDown_ = false;
};

}  // namespace keyscout::test
