#include "files/replace_file.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/temporary_folder.h"

namespace {
// What a sync does, if anything, and gives.
std::function<int(int)> onSync;
}  // namespace

// Stands in for the system's.
extern "C" int fsync(int file) {
  return onSync ? onSync(file) : 0;
}

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr char name[] = "network.dat";
const std::string longName(250, 'x');  // too long for anything behind it
const std::string bytes(50, 'n');
const std::string oldContents[] = {"", "short", std::string(50, 'o'), std::string(90, 'o')};

struct stat statusOf(const fs::path& file) {
  struct stat status {};
  EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
  return status;
}
std::size_t filesIn(const fs::path& folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator{}));
}
void mode(const fs::path& file, mode_t permissions) {
  ASSERT_EQ(chmod(file.c_str(), permissions), 0);
}

// The process of a child that does `work`. Its status is 0 if no expectation failed there.
pid_t inChild(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child != 0) return child;
  work();
  std::fflush(nullptr);
  _exit(::testing::Test::HasFailure() ? 1 : 0);
}
void expectToSucceed(pid_t child) {
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

constexpr uid_t nobody = 65534;
constexpr gid_t otherGroup = 65533;

// As the user nobody, of another group as well, if we are root, to whom permissions mean nothing.
void asAnotherUser(const std::function<void()>& work) {
  expectToSucceed(inChild([&] {
    if (geteuid() == 0) {
      ASSERT_TRUE(setgroups(1, &otherGroup) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
    }
    work();
  }));
}

// Files may not become larger than 40 bytes.
void limitFiles() {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{40, 40};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

// As many syncs fail for this reason.
void failToSync(int times, int reason) {
  onSync = [times, reason](int) mutable {
    errno = reason;
    return times-- > 0 ? -1 : 0;
  };
}

// A current folder in which everybody may do everything.
class ReplaceFile : public ::testing::Test {
 protected:
  ReplaceFile() {
    fs::create_directory(here);
    fs::current_path(here);
    mode(here, 0777);
  }
  ~ReplaceFile() override { onSync = nullptr; }

  // Another user saves over a file of these permissions in such a folder, a writable one but for the sticky bit if
  // the file is to be replaced.
  void expectSave(
      const std::string& old, mode_t file, mode_t folder, Saved saved,
      const std::function<void()>& before = [] {}) {
    SCOPED_TRACE(testing::Message() << std::oct << file << " in " << folder << " in " << above << " over \""
                                    << old << "\"");
    writeFile(name, old);
    mode(name, file);
    const ino_t inode = statusOf(name).st_ino;
    mode(here, folder);
    mode(here.parent_path(), above);
    asAnotherUser([&] {
      before();
      EXPECT_EQ(replaceFile(name, bytes), saved);
    });
    mode(here.parent_path(), 0755);
    mode(here, 0777);
    const struct stat after = statusOf(name);
    EXPECT_EQ(after.st_mode & 0777U, file);
    EXPECT_EQ(after.st_ino != inode, saved == Saved::yes && (folder & 01002U) == 2);
    mode(name, 0666);
    EXPECT_EQ(readFile(name), saved == Saved::yes ? bytes : old);
    EXPECT_EQ(filesIn("."), 1U);
  }

 private:
  TemporaryFolder folderAbove;

 protected:
  const fs::path here = fs::current_path() / "here";
  mode_t above = 0755;  // the permissions of the folder above, while another user saves
};

TEST_F(ReplaceFile, TheNewFileHasThePermissionsAndTheOwnerOfTheOld) {
  const int freeFile = dup(0);
  close(freeFile);
  const mode_t mask = umask(027);
  EXPECT_EQ(replaceFile(name, bytes), Saved::yes);  // where there is none
  umask(mask);
  EXPECT_EQ(readFile(name), bytes);
  EXPECT_EQ(statusOf(name).st_mode & 0777U, 0640U);
  mode(name, 0662);
  if (geteuid() == 0) {
    ASSERT_EQ(chown(name, 1, otherGroup), 0);
    EXPECT_EQ(replaceFile(name, bytes), Saved::yes);
    EXPECT_EQ(statusOf(name).st_uid, 1U);
    asAnotherUser([] { EXPECT_EQ(replaceFile(name, bytes), Saved::yes); });
    EXPECT_EQ(statusOf(name).st_uid, nobody);
    EXPECT_EQ(statusOf(name).st_gid, otherGroup);  // at least the group
  }
  EXPECT_EQ(replaceFile(name, bytes), Saved::yes);
  EXPECT_EQ(statusOf(name).st_mode & 0777U, 0662U);
  EXPECT_EQ(dup(0), freeFile);  // all are closed
  close(freeFile);
}

TEST_F(ReplaceFile, TheRightToWriteDecides) {
  for (const mode_t permissions : {0755U, 0600U}) {  // the second may not be searched
    above = permissions;
    for (const mode_t file : {0222U, 0666U}) {
      for (const mode_t folder : {0777U, 0333U, 0555U}) expectSave("old", file, folder, Saved::yes);
    }
    for (const mode_t file : {0U, 0444U}) {
      for (const mode_t folder : {0777U, 0555U}) expectSave("old", file, folder, Saved::notWritable);
    }
    expectSave("old", 0666, 0666, Saved::notWritable);
  }
  fs::remove(name);
  mode(here, 0555);
  asAnotherUser([] { EXPECT_EQ(replaceFile(name, bytes), Saved::notWritable); });
  mode(here, 0777);
}

TEST_F(ReplaceFile, WhereNoFileCanTakeItsNameItIsWrittenOver) {
  for (const std::string& old : oldContents) {
    expectSave(old, 0666, 0555, Saved::yes);
    // Only its owner may rename a file there.
    if (geteuid() == 0) expectSave(old, 0666, 01777, Saved::yes);
  }
  for (const std::string& content : {bytes, std::string(), bytes}) {
    EXPECT_EQ(replaceFile(longName, content), Saved::yes);
    EXPECT_EQ(readFile(longName), content);
  }
}

TEST_F(ReplaceFile, WithoutRoomTheOldContentStands) {
  for (const std::string& old : oldContents) {
    for (const mode_t folder : {0777U, 0555U}) expectSave(old, 0666, folder, Saved::no, limitFiles);
  }
  fs::remove(name);
  expectToSucceed(inChild([] {
    limitFiles();
    for (const std::string& file : {std::string(name), longName}) {
      EXPECT_EQ(replaceFile(file, bytes), Saved::no);
      EXPECT_EQ(filesIn("."), 0U);
      writeFile(file, "old");
      EXPECT_EQ(replaceFile(file, bytes), Saved::no);
      EXPECT_EQ(readFile(file), "old");
      fs::remove(file);
    }
  }));
}

TEST_F(ReplaceFile, WhatCannotBeSyncedIsNotSaved) {
  for (const mode_t folder : {0777U, 0555U}) {
    expectSave("old", 0666, folder, Saved::no, [] { failToSync(9, EIO); });
    expectSave("old", 0666, folder, Saved::no, [] { failToSync(1, EIO); });
    expectSave("old", 0666, folder, Saved::yes, [] { failToSync(1, EINTR); });
    expectSave("old", 0666, folder, Saved::yes, [] { failToSync(9, EINVAL); });  // nothing to sync
  }
}

TEST_F(ReplaceFile, IsOnTheDiskBeforeItTakesTheNameAndSoIsItsFolderAfter) {
  std::vector<std::string> seen;
  onSync = [&seen](int file) {
    struct stat status {};
    fstat(file, &status);
    seen.push_back((S_ISDIR(status.st_mode) ? "folder, then " : "file, then ") + readFile(name));
    return 0;
  };
  const auto expectToSee = [&seen](const std::vector<std::string>& steps) {
    seen.clear();
    EXPECT_EQ(replaceFile(name, "longer"), Saved::yes);
    EXPECT_EQ(seen, steps);
  };
  expectToSee({"file, then ", "folder, then longer"});
  writeFile(name, "old");
  expectToSee({"file, then old", "folder, then longer"});
  writeFile(name, "old");
  mode(name, 0666);
  mode(here, 0555);
  asAnotherUser([&] { expectToSee({"file, then oldger", "file, then longer"}); });
  mode(here, 0777);
}

TEST_F(ReplaceFile, WhatOthersLeftBesideItIsNeitherUsedNorRemoved) {
  const std::string beside = std::string(name) + ".saving";
  const auto own = [&](int number) {
    return beside + "-" + std::to_string(getpid()) + "-" + std::to_string(number);
  };
  writeFile(name, "old");
  writeFile(beside, "left");
  writeFile("victim", "left");
  writeFile(own(0), "left");
  fs::create_symlink("victim", own(1));
  fs::create_symlink("nowhere", own(2));
  fs::create_directory(own(3));
  const auto expectSaved = [&](std::size_t files, bool replaced) {
    const ino_t before = statusOf(name).st_ino;
    EXPECT_EQ(replaceFile(name, bytes), Saved::yes);
    EXPECT_EQ(readFile(name), bytes);
    EXPECT_EQ(statusOf(name).st_ino != before, replaced);
    for (const std::string& file : {beside, std::string("victim"), own(0)}) EXPECT_EQ(readFile(file), "left");
    EXPECT_EQ(filesIn("."), files);
  };
  expectSaved(7, true);
  for (int number = 4; number < 200; ++number) writeFile(own(number), "left");
  writeFile(name, "old");
  expectSaved(203, false);
}

TEST_F(ReplaceFile, LinksStayLinks) {
  fs::create_directory("folder");
  fs::create_symlink("folder/first", name);
  fs::create_symlink("second", "folder/first");
  fs::create_symlink(here / "folder/real", "folder/second");
  for (const char* file : {"leads nowhere yet", "does by now"}) {
    SCOPED_TRACE(file);
    EXPECT_EQ(replaceFile(name, bytes), Saved::yes);
    EXPECT_TRUE(fs::is_symlink(name) && fs::is_symlink("folder/first") && fs::is_symlink("folder/second"));
    EXPECT_EQ(readFile("folder/real"), bytes);
    writeFile("folder/real", "old");
  }
  EXPECT_EQ(filesIn("folder"), 3U);
  for (const char* end : {name, "folder", "missing/file"}) {
    fs::remove(name);
    fs::create_symlink(end, name);
    EXPECT_EQ(replaceFile(name, bytes), Saved::notWritable) << end;
    EXPECT_TRUE(fs::is_symlink(name));
  }
}

TEST_F(ReplaceFile, WhatIsNoFileIsWrittenTo) {
  asAnotherUser([] {  // who could not replace them
    EXPECT_EQ(replaceFile("/dev/null", bytes), Saved::yes);
    EXPECT_EQ(replaceFile("/dev/full", bytes), Saved::no);
  });
  fs::create_directory("folder");
  EXPECT_EQ(replaceFile("folder", bytes), Saved::notWritable);
  ASSERT_EQ(mkfifo(name, 0666), 0);
  EXPECT_EQ(replaceFile(name, bytes), Saved::notWritable);  // nobody reads it
  const int reader = open(name, O_RDONLY | O_NONBLOCK);
  const std::string more(200'000, 'm');  // than a pipe holds
  const pid_t writer = inChild([&] { EXPECT_EQ(replaceFile(name, more), Saved::yes); });
  EXPECT_TRUE(readFile(name) == more);
  expectToSucceed(writer);
  close(reader);
  // A link of /proc that does not say where it leads.
  const int removed = open("removed", O_RDWR | O_CREAT, 0666);
  fs::remove("removed");
  EXPECT_EQ(replaceFile("/proc/self/fd/" + std::to_string(removed), bytes), Saved::yes);
  EXPECT_EQ(lseek(removed, 0, SEEK_END), static_cast<off_t>(bytes.size()));
  close(removed);
  EXPECT_EQ(filesIn("."), 2U);
}

TEST_F(ReplaceFile, IsWholeAtEveryLookWhileTwoProcessesSave) {
  const std::string contents[] = {std::string(300'000, 'a'), std::string(100'000, 'b')};
  const char* const names[] = {name, "link"};
  fs::create_symlink(name, "link");
  EXPECT_EQ(replaceFile(name, contents[0]), Saved::yes);
  pid_t savers[2];
  for (int saver = 0; saver < 2; ++saver) {
    savers[saver] = inChild([&] {
      for (int time = 0; time < 100; ++time)
        EXPECT_EQ(replaceFile(names[saver], contents[saver]), Saved::yes);
    });
  }
  int torn = 0;
  for (const pid_t saver : savers) {
    siginfo_t ended{};
    while (waitid(P_PID, static_cast<id_t>(saver), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           ended.si_pid == 0) {
      const std::string seen = readFile(name);
      torn += seen != contents[0] && seen != contents[1] ? 1 : 0;
    }
    expectToSucceed(saver);
  }
  EXPECT_EQ(torn, 0);
  EXPECT_EQ(filesIn("."), 2U);
}

}  // namespace
}  // namespace quorvane
