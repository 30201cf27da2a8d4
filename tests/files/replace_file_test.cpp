#include "files/replace_file.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <thread>

#include "support/files.h"
#include "support/temporary_folder.h"

namespace {
// What a sync, or the close of a file, does, if anything, and gives.
std::function<int(int)> onSync;
std::function<int(int)> onClose;
}  // namespace

// Stand in for the system's.
extern "C" int fsync(int file) {
  return onSync ? onSync(file) : 0;
}
extern "C" int close(int file) {
  const int closed = static_cast<int>(syscall(SYS_close, file));
  return onClose ? onClose(file) : closed;
}

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr char name[] = "network.dat";
const std::string bytes(50, 'n');
const std::string oldContents[] = {"", "short", std::string(50, 'o'), std::string(90, 'o')};
constexpr uid_t nobody = 65534;
constexpr gid_t otherGroup = 65533;

struct stat statusOf(const fs::path& file) {
  struct stat status {};
  EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
  return status;
}
std::size_t filesIn(const fs::path& folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator{}));
}

// In a child, as the user nobody, of another group as well, if we are root, to whom permissions mean nothing.
void asAnotherUser(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    const bool other =
        geteuid() != 0 || (setgroups(1, &otherGroup) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
    work();
    std::fflush(nullptr);
    _exit(other && !::testing::Test::HasFailure() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

// Files may not become larger than 40 bytes.
void limitFiles() {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{40, 40};
  setrlimit(RLIMIT_FSIZE, &limit);
}

// What fails so many times for this reason.
std::function<int(int)> failing(int times, int reason) {
  return [times, reason](int) mutable {
    errno = reason;
    return times-- > 0 ? -1 : 0;
  };
}

// A current folder in which everybody may do everything.
class ReplaceFile : public ::testing::Test {
 protected:
  ReplaceFile() { chmod(".", 0777); }
  ~ReplaceFile() override { onSync = onClose = nullptr; }

  // Another user saves over a file of these permissions in such a folder, a writable one but for the sticky
  // bit if the file is to be replaced.
  static void expectSave(
      const std::string& old, mode_t file, mode_t folder, Saved saved,
      const std::function<void()>& before = [] {}) {
    SCOPED_TRACE(testing::Message() << std::oct << file << " in " << folder << " over \"" << old << "\"");
    writeFile(name, old);
    chmod(name, file);
    const ino_t inode = statusOf(name).st_ino;
    chmod(".", folder);
    asAnotherUser([&] {
      before();
      EXPECT_EQ(replaceFile(name, bytes), saved);
    });
    chmod(".", 0777);
    EXPECT_EQ(statusOf(name).st_mode & 0777U, file);
    EXPECT_EQ(statusOf(name).st_ino != inode, saved == Saved::yes && (folder & 01002U) == 2);
    chmod(name, 0666);
    EXPECT_EQ(readFile(name), saved == Saved::yes ? bytes : old);
    EXPECT_EQ(filesIn("."), 1U);
  }

 private:
  TemporaryFolder current;
};

TEST_F(ReplaceFile, TheNewFileHasThePermissionsAndTheOwnerOfTheOld) {
  const int freeFile = dup(0);
  close(freeFile);
  umask(027);
  EXPECT_EQ(replaceFile(name, bytes), Saved::yes);  // where there is none
  EXPECT_EQ(statusOf(name).st_mode & 0777U, 0640U);
  chmod(name, 0662);
  if (chown(name, 1, otherGroup) == 0) {
    EXPECT_EQ(replaceFile(name, bytes), Saved::yes);
    EXPECT_EQ(statusOf(name).st_uid, 1U);
    asAnotherUser([] { EXPECT_EQ(replaceFile(name, bytes), Saved::yes); });
    EXPECT_EQ(statusOf(name).st_uid, nobody);
    EXPECT_EQ(statusOf(name).st_gid, otherGroup);  // at least the group
  }
  EXPECT_EQ(statusOf(name).st_mode & 0777U, 0662U);
  EXPECT_EQ(dup(0), freeFile);  // all are closed
}

TEST_F(ReplaceFile, TheRightToWriteDecides) {
  for (const mode_t file : {0222U, 0666U}) {
    for (const mode_t folder : {0777U, 0333U, 0555U}) expectSave("old", file, folder, Saved::yes);
  }
  for (const mode_t folder : {0777U, 0555U}) expectSave("old", 0444, folder, Saved::notWritable);
  fs::remove(name);
  chmod(".", 0555);
  asAnotherUser([] { EXPECT_EQ(replaceFile(name, bytes), Saved::notWritable); });
  // A folder above that may not be searched changes nothing.
  chmod(".", 0700);
  fs::create_directory("here");
  fs::current_path("here");
  expectSave("old", 0666, 0777, Saved::yes);
}

TEST_F(ReplaceFile, WhereNoFileCanTakeItsNameItIsWrittenOver) {
  for (const std::string& old : oldContents) {
    // Only its owner may rename a file where the sticky bit is set.
    for (const mode_t folder : {0555U, 01777U}) expectSave(old, 0666, folder, Saved::yes);
  }
  const std::string longName(250, 'x');  // too long for anything behind it
  for (const std::string& content : {bytes, std::string(), bytes}) {
    EXPECT_EQ(replaceFile(longName, content), Saved::yes);
    EXPECT_EQ(readFile(longName), content);
  }
  fs::remove(longName);
  asAnotherUser([&] {
    limitFiles();
    EXPECT_EQ(replaceFile(longName, bytes), Saved::no);
  });
  EXPECT_FALSE(fs::exists(longName));
}

TEST_F(ReplaceFile, WithoutRoomOrWithoutTheDiskTheOldContentStands) {
  for (const mode_t folder : {0777U, 0555U}) {
    for (const std::string& old : oldContents) expectSave(old, 0666, folder, Saved::no, limitFiles);
    expectSave("old", 0666, folder, Saved::no, [] { onSync = failing(1, EIO); });
    expectSave("old", 0666, folder, Saved::yes, [] { onSync = failing(1, EINTR); });
    expectSave("old", 0666, folder, Saved::yes, [] { onSync = failing(9, EINVAL); });  // nothing to sync
    expectSave("old", 0666, folder, Saved::yes, [] { onClose = failing(9, EINTR); });
  }
  expectSave("old", 0666, 0777, Saved::no, [] { onClose = failing(9, EIO); });
  asAnotherUser([] {
    onClose = failing(9, EIO);
    EXPECT_EQ(replaceFile("/dev/null", bytes), Saved::no);
  });
}

TEST_F(ReplaceFile, IsOnTheDiskBeforeItTakesTheNameAndSoIsItsFolderAfter) {
  std::string seen;
  onSync = [&seen](int file) {
    struct stat status {};
    fstat(file, &status);
    seen += (S_ISDIR(status.st_mode) ? "folder " : "file ") + readFile(name) + ", ";
    return 0;
  };
  const auto expectToSee = [&seen](mode_t folder, const std::string& steps) {
    writeFile(name, "old");
    chmod(name, 0666);
    chmod(".", folder);
    asAnotherUser([&] {
      EXPECT_EQ(replaceFile(name, "longer"), Saved::yes);
      EXPECT_EQ(seen, steps);
    });
    chmod(".", 0777);
  };
  expectToSee(0777, "file old, folder longer, ");
  expectToSee(0555, "file oldger, file longer, ");
}

TEST_F(ReplaceFile, WhatOthersLeftBesideItIsNeitherUsedNorRemoved) {
  const std::string own = std::string(name) + ".saving-" + std::to_string(getpid()) + "-";
  writeFile("victim", "left");
  writeFile(own + "0", "left");
  fs::create_symlink("victim", own + "1");
  fs::create_symlink("nowhere", own + "2");
  EXPECT_EQ(replaceFile(name, bytes), Saved::yes);
  EXPECT_EQ(readFile("victim") + readFile(own + "0") + readFile(name), "leftleft" + bytes);
  EXPECT_EQ(filesIn("."), 5U);
}

TEST_F(ReplaceFile, LinksStayLinks) {
  fs::create_directory("folder");
  fs::create_symlink("folder/first", name);
  fs::create_symlink(fs::current_path() / "folder/real", "folder/first");
  for (const char* file : {"leads nowhere yet", "does by now"}) {
    EXPECT_EQ(replaceFile(name, bytes), Saved::yes) << file;
    EXPECT_TRUE(fs::is_symlink(name) && fs::is_symlink("folder/first"));
    EXPECT_EQ(readFile("folder/real"), bytes);
    writeFile("folder/real", "old");
  }
  EXPECT_EQ(filesIn("folder"), 2U);
  for (const char* end : {name, "folder", "missing/file"}) {
    fs::remove(name);
    fs::create_symlink(end, name);
    EXPECT_EQ(replaceFile(name, bytes), Saved::notWritable) << end;
    EXPECT_TRUE(fs::is_symlink(name));
  }
}

TEST_F(ReplaceFile, WhatIsNoFileIsWrittenTo) {
  EXPECT_EQ(replaceFile("/dev/full", bytes), Saved::no);
  ASSERT_EQ(mkfifo(name, 0666), 0);
  EXPECT_EQ(replaceFile(name, bytes), Saved::notWritable);  // nobody reads it
  const int reader = open(name, O_RDONLY | O_NONBLOCK);
  const std::string more(200'000, 'm');  // than a pipe holds
  std::thread writer([&] { EXPECT_EQ(replaceFile(name, more), Saved::yes); });
  EXPECT_TRUE(readFile(name) == more);
  writer.join();
  close(reader);
  // A link of /proc that does not say where it leads.
  const int removed = open("removed", O_RDWR | O_CREAT, 0666);
  fs::remove("removed");
  EXPECT_EQ(replaceFile("/proc/self/fd/" + std::to_string(removed), bytes), Saved::yes);
  EXPECT_EQ(lseek(removed, 0, SEEK_END), static_cast<off_t>(bytes.size()));
  close(removed);
  EXPECT_EQ(filesIn("."), 1U);
}

}  // namespace
}  // namespace quorvane
