#pragma once

#include <iconv.h>

#include <memory>
#include <string>
#include <string_view>

#include "base/text.h"

namespace keyscout {

/// Turns the fields of a list into text. Fails with `std::invalid_argument`, whose text is a
/// sentence.
class FieldDecoder {
 public:
  /// `codePage` is a code page by its number, or a character set by its name.
  explicit FieldDecoder(const std::string& codePage);

  String decode(std::string_view bytes) const;

 private:
  struct Closer {
    void operator()(iconv_t converter) const { iconv_close(converter); }
  };

  std::string name_;
  std::unique_ptr<void, Closer> converter_;
};

/// The bytes of `text` in the code page of the catalog. Fails with `std::invalid_argument` at a
/// character that has no place there.
std::string catalogBytes(StringView text);

/// `text` in capitals, save letters whose capital the catalog's code page has not.
String inCapitals(StringView text);

}  // namespace keyscout
