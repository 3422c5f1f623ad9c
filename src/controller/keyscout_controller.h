#pragma once

#include <cstdint>
#include <memory>

#include "base/boolean.h"
#include "base/text.h"
#include "platform/brand_list.h"
#include "platform/platform.h"
#include "shared/keyscout_module.h"
#include "shared/tracer.h"

namespace keyscout {

/// Through this class the host configures the catalog data and brings lookups into service. It has
/// no state of its own: every instance on a thread shows and changes the state that all controls
/// on that thread share, so it can be released at any time. Where an instance outlives that state,
/// as a static object does on the main thread, its members fail with object not set (91).
///
/// The order of a start: set `KeyscoutDirectory`, `KeyscoutIndexFile` and
/// `CatalogNumbersDownloadFile`, call `init`, then set `KeyscoutEnabled`.
class RWKeyscoutController {
 public:
  /// `platform` must outlive the controller. The services that its object library makes are kept by
  /// the thread's shared state, and so outlive both.
  explicit RWKeyscoutController(Platform& platform);

  // Configuration. Getting and setting never fail otherwise.

  const std::shared_ptr<BrandCollection>& authorizedBrands() const;
  void setAuthorizedBrands(std::shared_ptr<BrandCollection> brands);
  const String& KeyscoutDirectory() const;
  /// Stored with a backslash at its end, which is added where it is missing.
  void setKeyscoutDirectory(StringView directory);
  const String& KeyscoutIndexFile() const;
  void setKeyscoutIndexFile(StringView name);
  const String& CatalogNumbersDownloadFile() const;
  void setCatalogNumbersDownloadFile(StringView name);

  // Kept for the host; nothing here reads them.

  Boolean hasdataIntegrity() const;
  void setHasdataIntegrity(Boolean value);
  const String& updateURL() const;
  void setUpdateURL(StringView value);
  const String& updateURLFile() const;
  void setUpdateURLFile(StringView value);
  const String& updaterExe() const;
  void setUpdaterExe(StringView value);

  // Readiness. Controls look up while authenticated and enabled and not locked.

  Boolean isInitialized() const;
  void setIsInitialized(Boolean value);
  Boolean KeyscoutInitialized() const { return isInitialized(); }
  Boolean isKeyscoutAuthenticated() const;
  void setIsKeyscoutAuthenticated(Boolean value);
  Boolean KeyscoutEnabled() const;
  void setKeyscoutEnabled(Boolean value);
  Boolean KeyscoutLocked() const;
  void setKeyscoutLocked(Boolean value);

  /// Sets `isKeyscoutAuthenticated` to whether all three settings are given. Fails with
  /// `RequiredFilesMissing` where one is empty; that the files exist is not examined.
  void authenticateRequiredProperties(StringView strKeyscoutDirectory,
                                      StringView strKeyscoutIndexFile,
                                      StringView strCatalogNumbersDownloadFile);

  /// Loads the index and the brand file, without any check of the download. Never fails: a load
  /// that ends early is traced, keeps the index lines read so far, leaves no brands, and leaves
  /// `isInitialized` as it was.
  void initialize();

  /// True when the download file has the format that lookups read. Fails with
  /// `CatalogFormatChanged`, `InconsistantVersion`, or `RequiredFilesMissing` where there is no
  /// such file; any other failure is traced and gives false.
  [[nodiscard]] Boolean checkDownloadVersion();

  /// True when the control file says that the last download is complete. Fails with
  /// `ControlStatusInProcess` or `ControlStatusCorrupt`; any other failure, a missing file
  /// included, is traced and gives false.
  [[nodiscard]] Boolean checkCatalogControlFile();

  /// The one-call start-up: authenticates, checks the download and loads. Returns `isInitialized`.
  /// Fails with the error of the step that failed; `KeyscoutLocked` is then true.
  [[nodiscard]] Boolean init();

  /// Lifts the lock when the control file says ready and the data could be loaded again; whether
  /// it did. Fails with the error of the check or of `init`.
  [[nodiscard]] Boolean tryToUnlock();

  /// Makes the next search of a control start at the first table of the index.
  Boolean resetLastTableNumber();

  /// Fails with `CatalogFilesOld` when `days` is above 0 and the index file was last written more
  /// than that many days ago, and with a file error where it cannot be found.
  void needToUpdate(std::int16_t days);

 private:
  String pathInDirectory(StringView fileName) const;
  void loadIndex();
  void loadBrands();

  Platform& platform_;
  SharedState module_;
  Tracer tracer_;
};

}  // namespace keyscout
