#include "apps/cli/csv/csv_options.h"

namespace keyscout {

std::unique_ptr<DownloadMaker> openCsv(const CsvOptions&) {
  throw PackError("This program was built without libcsv and reads no CSV lists.",
                  ExitStatus::unusable);
}

}  // namespace keyscout
