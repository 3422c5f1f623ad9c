#include "apps/cli/directory/wrong_header.h"

#include "apps/cli/directory/record_bytes.h"
#include "apps/cli/sentences/in_quotes.h"
#include "base/letter_case.h"
#include "platform/local/native_code_page.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {

std::string wrongHeader(std::string_view firstLine) {
  if (firstLine.starts_with("\xEF\xBB\xBF"))
    return "a byte order mark stands before it; save the file without one, in " + nameOfCodePage();
  if (firstLine.starts_with("\xFF\xFE") || firstLine.starts_with("\xFE\xFF") ||
      firstLine.find('\0') != firstLine.npos)
    return "the file is UTF-16; save it in " + nameOfCodePage();
  if (firstLine.find('\r') != firstLine.npos)
    return "the lines of the file end with CR alone; end them with CR LF or LF";
  const String line = nativeCodePage().decode(firstLine);
  if (trimmed(line).empty()) return "it is blank";
  if (trimmed(line) == downloadHeader) return "blanks stand before or behind it; take them away";
  if (equalIgnoringCase(line, downloadHeader)) return "it stands there in other letters";
  return "it is " + inQuotes(line);
}

}  // namespace keyscout
