#include "apps/cli/try/lookup_field.h"

#include "base/utf8.h"

namespace keyscout {
namespace {

std::string listed(std::int16_t first, std::int16_t second) {
  return std::to_string(first) + ", " + std::to_string(second);
}

}  // namespace

void LookupField::brandChanged(String& strBrand) {
  host_.log.add(name_, "brandChanged", toUtf8(strBrand));
  acceptedBrand_ = strBrand;
  acceptedText_.reset();  // the control is about to write it
}

void LookupField::Change() {
  host_.log.add(name_, "Change");
  const String text = control_.text();
  if (!acceptedText_) acceptedText_ = text;
  if (text != *acceptedText_) acceptedBrand_.clear();
}

void LookupField::needBrand() {
  host_.log.add(name_, "needBrand");
  control_.setBrand(host_.brand());
}

void LookupField::KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
  host_.log.add(name_, "KeyDown", listed(KeyCode, Shift));
}

void LookupField::KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) {
  host_.log.add(name_, "KeyUp", listed(KeyCode, Shift));
}

void LookupField::MouseDown(std::int16_t& Button, std::int16_t&, float&, float&) {
  host_.log.add(name_, "MouseDown", std::to_string(Button));
}

void LookupField::MouseUp(std::int16_t& Button, std::int16_t&, float&, float&) {
  host_.log.add(name_, "MouseUp", std::to_string(Button));
}

void LookupField::UpdateKeyscout() {
  host_.log.add(name_, "UpdateKeyscout");
  host_.updateWanted();
}

}  // namespace keyscout
