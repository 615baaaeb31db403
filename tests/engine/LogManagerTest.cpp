#include "EngineTest.h"
#include "internal/platform.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#endif
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

namespace {

/// The log alone, not yet started.
class LogManagerTest : public testing::Test {
protected:
  void SetUp() override {
    log.setLogLevel(gw::ALL);
    log.setFlush(true);
  }
  void TearDown() override {
    log.shutDown();
    std::filesystem::remove(gw::LOGFILE_NAME);
  }

  gw::LogManager &log = gw::LogManager::getInstance();
};

} // namespace

TEST_F(LogManagerTest, ALineIsLocalTimeLevelAndMessage) {
  static char zone[] = "TZ=XYZ-05:45"; // 5 h 45 min before Greenwich: local time tells
  putenv(zone);
  tzset();
  const std::time_t start = std::time(nullptr);
  ASSERT_EQ(log.startUp(), 0);
  for (int level : {0, 1, 2, 3, 4, 5, -1})
    EXPECT_EQ(log.writeLog(static_cast<gw::LogLevel>(level), "x=%d", 42), 4);
  EXPECT_EQ(log.writeLog("x=%d", 42), 4) << "without a level: ALL";
  std::string times; // that the lines can have
  for (std::time_t t = start + 20700; t <= std::time(nullptr) + 20700; t++) {
    char text[12];
    std::strftime(text, sizeof text, "[%H:%M:%S] ", std::gmtime(&t));
    times += text;
  }
  std::ifstream file(gw::LOGFILE_NAME); // flushed, not yet closed
  std::string line;
  for (const char *expected :
       {"     INFO: LogManager is started up.", " CRITICAL: x=42", "    ERROR: x=42",
        "  WARNING: x=42", "     INFO: x=42", "    DEBUG: x=42", "      ALL: x=42",
        "  UNKNOWN: x=42", "      ALL: x=42"}) {
    ASSERT_TRUE(std::getline(file, line));
    EXPECT_NE(times.find(line.substr(0, 11)), std::string::npos) << line;
    EXPECT_EQ(line.substr(10), expected);
  }
  EXPECT_FALSE(std::getline(file, line)) << line;
}

TEST_F(LogManagerTest, LinesAboveTheLevelAreLeftOut) {
  ASSERT_EQ(log.startUp(), 0);
  log.setFlush(false);
  for (int threshold = gw::CRITICAL; threshold <= gw::ALL; threshold++) {
    log.setLogLevel(static_cast<gw::LogLevel>(threshold));
    for (int level = gw::CRITICAL; level <= gw::ALL; level++)
      EXPECT_EQ(log.writeLog(static_cast<gw::LogLevel>(level), "12345"),
                level <= threshold ? 5 : 0);
    EXPECT_EQ(log.writeLog("123"), threshold == gw::ALL ? 3 : 0);
  }
  log.shutDown();
  EXPECT_EQ(logLines().size(), 24U) << "first, last, and 1 + 2 + ... + 6 + 1 between";
  EXPECT_EQ(log.startUp(), 0);
  EXPECT_LE(logLines().size(), 1U) << "a restart empties the file";
#ifndef _WIN32
  EXPECT_EQ(logLines().size(), 0U) << "nothing is flushed";
#endif
}

TEST_F(LogManagerTest, WhileNotStartedItWritesToTheErrorStream) {
  const std::string fallback =
      "The LogManager is not started but was requested to write a log. This message is "
      "written to stderr as writing to the log is not possible.\n"
      "The message without arguments was \"x=%d of %s\".\n";
  log.setLogLevel(gw::CRITICAL); // plays no part
  const auto expectFallback = [&](const char *when) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(log.writeLog(gw::DEBUG, "x=%d of %s", 42, "y"), -1);
    EXPECT_EQ(log.writeLog("x=%d of %s", 42, "y"), -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), fallback + fallback) << when;
  };
  expectFallback("before start-up");
  ASSERT_EQ(log.startUp(), 0);
  log.shutDown();
  expectFallback("after shut-down");
  std::filesystem::remove(gw::LOGFILE_NAME);
#ifndef _WIN32
  ASSERT_EQ(mkfifo(gw::LOGFILE_NAME.c_str(), 0600), 0); // would wait for a reader
  EXPECT_EQ(log.startUp(), -1);
  std::filesystem::remove(gw::LOGFILE_NAME);
#endif
  std::filesystem::create_directory(gw::LOGFILE_NAME); // cannot be opened for writing
  EXPECT_EQ(log.startUp(), -1);
  expectFallback("after a start that failed");
}

#ifndef _WIN32 // where nothing limits the size of a file
TEST_F(LogManagerTest, ALineThatTheFileCannotTakeGoesToTheErrorStreamAlone) {
  ASSERT_EQ(log.startUp(), 0);
  std::signal(SIGXFSZ, SIG_IGN);
  const auto limitFile = [](rlim_t bytes) {
    const rlimit limit{bytes, RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  };
  log.writeLog(gw::INFO, "%s", std::string(1000, 'x').c_str()); // more than is expected
  testing::internal::CaptureStderr();
  limitFile(std::filesystem::file_size(gw::LOGFILE_NAME)); // the disk is full
  EXPECT_EQ(log.writeLog(gw::INFO, "x=%d\033", 42), 5);
  limitFile(RLIM_INFINITY);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "The log cannot be written: File too large.\nThe message was "
            "\"x=42\\x1b\".\n");
  EXPECT_EQ(log.writeLog(gw::INFO, "y"), 1);
  EXPECT_EQ(logLines().back(), "INFO: y");
}
#endif

TEST_F(LogManagerTest, ASecondCopyOfTheProgramWritesALogOfItsOwn) {
  bool is_taken = false;
  std::FILE *p_first = gw::openExclusively(gw::LOGFILE_NAME, is_taken);
  ASSERT_TRUE(p_first && !is_taken);
  std::fputs("the first copy's\n", p_first);
  testing::internal::CaptureStderr();
  EXPECT_EQ(log.startUp(), 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "glidewing.log is another copy's of this program; this one writes "
            "glidewing-2.log.\n");
  std::fclose(p_first);
  log.shutDown();
  EXPECT_EQ(logLines(), Lines{"the first copy's"});
  std::filesystem::rename("glidewing-2.log", gw::LOGFILE_NAME);
  EXPECT_EQ(logLines(), (Lines{"INFO: LogManager is started up.",
                               "INFO: LogManager is shutting down."}));
}
