// How a new catalog takes the place of the old one, and what it leaves alone.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <string>
#include <vector>

#include "apps/cli/files/file_lock.h"
#include "apps/cli/packing/pack_fixture.h"

namespace keyscout::test {
namespace {

class Publication : public PackTest {
 protected:
  /// A catalog of `count` numbers in a directory of its own.
  fs::path packed(const std::string& name, int count) const {
    PackOptions wanted = options(header + filler(count));
    wanted.directory = root_ / name;
    packCatalog(wanted);
    return wanted.directory;
  }
  PackOptions fewRecords() const { return options(header + filler(3)); }
};

/// Names of files alone.
std::vector<std::string> namesOf(const Snapshot& files) {
  std::vector<std::string> names;
  for (const auto& file : files) names.push_back(file.first);
  return names;
}

TEST_F(Publication, ServesTheOldCatalogWhileItWorksAndAfterAnInterruption) {
  pack(header + record(1, "OLD") + "\r\n");
  const PackOptions wanted = options(header + filler(3000));
  const Snapshot old = snapshotOf(directory());
  std::vector<std::string> steps;
  packCatalog(wanted, [&](std::string_view step, std::uint64_t done, std::uint64_t total) {
    steps.emplace_back(step);
    EXPECT_LE(done, total);
    Snapshot expected = old;
    expected["keyscout-pack.tmp"] = "";
    expected["keyscout-pack.lock"] = "";
    EXPECT_EQ(snapshotOf(directory()), expected);
  });
  EXPECT_EQ(steps,
            (std::vector<std::string>{"Reading", "Reading", "Writing", "Writing", "Writing"}));
  const Snapshot packed = snapshotOf(directory());
  EXPECT_EQ(packed.at("catcontrol.txt"), "READY\r\n");
  EXPECT_EQ(packed.size(), 15U + 5U);

  const auto interrupt = [](std::string_view step, std::uint64_t, std::uint64_t) {
    if (step == "Writing") throw std::runtime_error("interrupted");
  };
  for (const PackOptions& interrupted : {wanted, fewRecords()}) {
    EXPECT_STREQ(failureOf(interrupted, interrupt).what(),
                 "The catalog could not be packed: interrupted");
    EXPECT_EQ(snapshotOf(directory()), packed);
  }
}

TEST_F(Publication, LeavesNoDirectoryThatItMadeInVain) {
  PackOptions wanted = options(header + record(1, "") + "\r\n");
  wanted.directory = root_ / "a" / "b";
  EXPECT_EQ(failureOf(wanted).exitStatus(), 1);
  EXPECT_FALSE(fs::exists(root_ / "a"));
}

TEST_F(Publication, RepacksOverItselfAndRemovesWhatIsLeftOver) {
  PackOptions wanted = options(header + filler(1000));
  packCatalog(wanted);
  const Snapshot first = snapshotOf(directory());
  ASSERT_TRUE(first.contains("4.txt"));

  wanted.download = directory() / "list.txt";
  fs::create_directories(directory() / "keyscout-pack.tmp" / "catalog");
  writeFile(directory() / "keyscout-pack.tmp" / "catalog" / "left.txt", "of a killed pack");
  writeFile(directory() / "keyscout-pack.lock", "");
  EXPECT_TRUE(packCatalog(wanted).replacesCatalog);
  EXPECT_EQ(snapshotOf(directory()), first);

  writeFile(directory() / "note.txt", "not ours");
  writeFile(directory() / "7.txt", "no table of this catalog");
  writeFile(wanted.download, header + filler(201));
  EXPECT_EQ(packCatalog(wanted).tables, 2U);
  EXPECT_EQ(namesOf(snapshotOf(directory())),
            (std::vector<std::string>{"0.txt", "1.txt", "7.txt", "brandindex.txt", "brandinfo.txt",
                                      "catcontrol.txt", "catindex.txt", "list.txt", "note.txt"}));
}

TEST_F(Publication, TakesTheFormerIndexAndDownloadAwayUnderAnyName) {
  PackOptions wanted = options(header + filler(401));
  wanted.indexName = "former.idx";
  wanted.downloadName = "former.lst";
  packCatalog(wanted);
  // The index names its table by a number that is not its position.
  std::string index = fileOf("former.idx");
  index.replace(0, 2, "77");
  writeFile(directory() / "former.idx", index);
  writeFile(directory() / "77.txt", "a table");

  packCatalog(fewRecords());
  EXPECT_EQ(namesOf(snapshotOf(directory())),
            (std::vector<std::string>{"0.txt", "brandindex.txt", "brandinfo.txt", "catcontrol.txt",
                                      "catindex.txt", "list.txt"}));
}

TEST_F(Publication, OfSeveralDownloadsTakesTheNewestAwayButNotTheOneBeingPacked) {
  packCatalog(fewRecords());
  const auto put = [&](const char* name, int hoursAgo) {
    writeFile(directory() / name, header + filler(3));
    fs::last_write_time(directory() / name,
                        fs::file_time_type::clock::now() - std::chrono::hours{hoursAgo});
  };
  put("list.txt", 1);
  put("archive.txt", 48);
  put("new.txt", 0);
  PackOptions wanted = fewRecords();
  wanted.download = directory() / "new.txt";
  packCatalog(wanted);
  EXPECT_EQ(namesOf(snapshotOf(directory())),
            (std::vector<std::string>{"0.txt", "archive.txt", "brandindex.txt", "brandinfo.txt",
                                      "catcontrol.txt", "catindex.txt", "new.txt"}));
}

TEST_F(Publication, RefusesToReplaceWhatIsNoCatalogsUnlessForced) {
  fs::create_directories(directory());
  writeFile(directory() / "0.txt", "a person's");
  const auto expectRefusal = [&](const std::string& message) {
    const Snapshot before = snapshotOf(directory());
    const PackError failure = failureOf(fewRecords());
    EXPECT_NE(std::string{failure.what()}.find(message), std::string::npos) << failure.what();
    EXPECT_EQ(failure.exitStatus(), 2);
    EXPECT_EQ(snapshotOf(directory()), before);
  };
  expectRefusal("data holds other files and no catalog");
  PackOptions forced = fewRecords();
  forced.force = true;
  packCatalog(forced);
  EXPECT_EQ(fileOf("catcontrol.txt"), "READY\r\n");

  writeFile(directory() / "1.txt", "a person's");
  forced.download = options(header + filler(300)).download;
  PackOptions meek = forced;
  meek.force = false;
  EXPECT_NE(std::string{failureOf(meek).what()}.find("1.txt is in the way and does not belong"),
            std::string::npos);
  EXPECT_EQ(fileOf("1.txt"), "a person's");
  packCatalog(forced);
  EXPECT_EQ(linesOf(fileOf("1.txt")).size(), 100U);

  fs::remove(directory() / "brandinfo.txt");
  fs::create_directories(directory() / "brandinfo.txt");
  expectRefusal("brandinfo.txt is a directory");
  fs::remove(directory() / "brandinfo.txt");
  packCatalog(fewRecords());

  // Where the download lies already, and nothing else, is a good place.
  const fs::path alone = root_ / "alone";
  fs::create_directories(alone);
  PackOptions inPlace = fewRecords();
  inPlace.directory = alone;
  inPlace.download = alone / "list.txt";
  writeFile(inPlace.download, header + filler(3));
  EXPECT_FALSE(packCatalog(inPlace).replacesCatalog);
}

TEST_F(Publication, ReplacesALinkAndNotWhatItLeadsTo) {
  packCatalog(fewRecords());
  for (const char* name : {"catcontrol.txt", "0.txt", "list.txt"}) {
    writeFile(root_ / "elsewhere", fileOf(name));
    const std::string before = readFile(root_ / "elsewhere");
    fs::remove(directory() / name);
    fs::create_symlink(root_ / "elsewhere", directory() / name);
    pack(header + filler(5));
    EXPECT_FALSE(fs::is_symlink(directory() / name)) << name;
    EXPECT_EQ(readFile(root_ / "elsewhere"), before) << name;
  }
}

TEST_F(Publication, GivesAllFilesTheSameModes) {
  const mode_t mask = ::umask(022);
  PackOptions wanted = fewRecords();
  fs::permissions(wanted.download, fs::perms::owner_read | fs::perms::owner_exec);
  packCatalog(wanted);
  ::umask(mask);
  for (const auto& file : fs::directory_iterator(directory()))
    EXPECT_EQ(static_cast<int>(file.status().permissions()), 0644) << file.path();
}

TEST_F(Publication, OfTwoPacksRefusesTheSecondAtOnce) {
  packCatalog(fewRecords());
  const Snapshot before = snapshotOf(directory());
  {
    const auto held = FileLock::take(directory() / "keyscout-pack.lock");
    ASSERT_TRUE(held);
    EXPECT_TRUE(FileLock::isTaken(directory() / "keyscout-pack.lock"));
    const PackError failure = failureOf(fewRecords());
    EXPECT_EQ(failure.exitStatus(), 3);
    EXPECT_EQ(std::string{failure.what()}.find("Another pack is at work in "), 0U);
  }
  EXPECT_FALSE(FileLock::isTaken(directory() / "keyscout-pack.lock"));
  EXPECT_EQ(snapshotOf(directory()), before);
  packCatalog(fewRecords());
}

/// What a pack of `next` over the catalog in `directory` leaves that is killed when `moved` of the
/// files have changed places.
void leaveHalfPublished(const fs::path& directory, const fs::path& next, std::size_t moved) {
  const fs::path staging = directory / "keyscout-pack.tmp";
  fs::create_directories(staging);
  fs::rename(next, staging / "complete");
  writeFile(directory / "catcontrol.txt", "INPROCESS\r\n");
  if (moved == 0) {
    std::string leftOver;
    for (const auto& file : fs::directory_iterator(directory))
      if (!fs::exists(staging / "complete" / file.path().filename()) && !file.is_directory())
        leftOver += file.path().filename().string() + '\n';
    writeFile(staging / "leftover", leftOver);
    return;
  }
  for (const auto& file : fs::directory_iterator(directory))
    if (!fs::exists(staging / "complete" / file.path().filename()) && !file.is_directory())
      fs::remove(file.path());
  for (const std::string& name : namesOf(snapshotOf(staging / "complete")))
    if (name != "catcontrol.txt" && moved-- != 0)
      fs::rename(staging / "complete" / name, directory / name);
}

TEST_F(Publication, GoesOnWhereAKilledPackLeftOff) {
  for (std::size_t moved = 0; moved <= 4; ++moved) {
    SCOPED_TRACE(moved);
    const fs::path data = packed("data", 900);
    const fs::path next = packed("next", 401);
    const Snapshot expected = snapshotOf(next);
    leaveHalfPublished(data, next, moved);
    // What is refused itself still ends what was begun.
    EXPECT_EQ(failureOf(options(header + record(1, "") + "\r\n")).exitStatus(), 1);
    EXPECT_EQ(snapshotOf(data), expected);
    fs::remove_all(data);
  }
}

TEST_F(Publication, DoesNotGoOnWhereNothingWasBegun) {
  const fs::path data = packed("data", 900);
  const Snapshot before = snapshotOf(data);
  const fs::path next = packed("next", 401);
  fs::create_directories(data / "keyscout-pack.tmp");
  fs::rename(next, data / "keyscout-pack.tmp" / "complete");
  EXPECT_EQ(failureOf(options(header + record(1, "") + "\r\n")).exitStatus(), 1);
  EXPECT_EQ(snapshotOf(data), before);
}

}  // namespace
}  // namespace keyscout::test
