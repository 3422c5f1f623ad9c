#include "lookup_stage.h"

#include <stdexcept>

#include "base/utf8.h"
#include "platform/local/local_brand_list.h"

namespace keyscout::bench {

MessageBoxButton LookupStage::Box::show(StringView text, std::int32_t, StringView) {
  throw std::runtime_error{toUtf8(text)};
}

LookupStage::LookupStage(const std::filesystem::path& directory, Files& files)
    : platform_(files, box_),
      surface_(form_.addSurface()),
      control_(platform_, *surface_, events_) {
  controller_.setKeyscoutDirectory(fromUtf8(directory.string()));
  controller_.setKeyscoutIndexFile(u"catindex.txt");
  controller_.setCatalogNumbersDownloadFile(u"download.txt");
  if (!controller_.init()) throw std::runtime_error{"no catalog in " + directory.string()};
  controller_.setKeyscoutEnabled(True);
  focusText();
}

void LookupStage::enter(const std::string& text) { surface_->textBox().setText(fromUtf8(text)); }

void LookupStage::press(std::int16_t keyCode) {
  form_.keyDown(keyCode, 0);
  form_.keyUp(keyCode, 0);
}

void LookupStage::setBrands(const std::vector<std::string>& brands) {
  const bool hasOne = brands.size() == 1;
  control_.setBrand(hasOne ? fromUtf8(brands.front()) : String{});
  const auto authorized = std::make_shared<LocalBrandList>();
  if (!hasOne)
    for (const std::string& brand : brands) authorized->add(fromUtf8(brand));
  controller_.setAuthorizedBrands(authorized);
}

std::vector<std::string> LookupStage::entries() const {
  std::vector<std::string> entries;
  if (const auto list = surface_->listView())
    for (const String& entry : list->entries) entries.push_back(toUtf8(entry));
  return entries;
}

}  // namespace keyscout::bench
