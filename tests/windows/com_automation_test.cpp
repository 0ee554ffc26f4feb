// The automation object over COM, against the fake Excel of the test server:
// calls and properties by name, texts, numbers, booleans, errors raised by the
// server, a busy, hanging or crashing server, classes that are not there, and
// WMI's process query.
#include <gtest/gtest.h>

#include <chrono>

#include "hosts/automation/windows/com_apartment.h"
#include "hosts/automation/windows/com_system.h"
#include "windows/fake_servers.h"

namespace korvane::test {

using hosts::AutomationError;
using hosts::AutoValue;
using Reason = hosts::AutomationError::Reason;

namespace {

struct ComAutomation : ::testing::Test {
  std::unique_ptr<hosts::AutomationSystem> com = hosts::windows::makeComAutomationSystem();
  hosts::AutoObject excel;

  void SetUp() override {
    excel = com->createObject("Excel.Application");  // COM starts the server
    ASSERT_TRUE(excel);
    resetFake(*excel);
  }
  void TearDown() override {
    hosts::windows::ComApartment::setTimeLimit(std::chrono::seconds(30));
    try {
      quitFake(com->createObject("Excel.Application"));
    } catch (const AutomationError&) {
    }
  }

  // The reason and subject of the failure of `f`.
  template <typename F>
  AutomationError failure(F f) {
    try {
      f();
    } catch (const AutomationError& e) {
      return e;
    }
    ADD_FAILURE() << "no automation error";
    return AutomationError("none");
  }
};

TEST_F(ComAutomation, ArgumentsArriveAndTheResultComesBackInTheUsersCodePage) {
  // "őű" and "Ő" are Windows-1250 bytes; they travel as UTF-16 and come back.
  const AutoValue r =
      excel->call("Run", {"Tabulon.xla!Ditch.aaDrawPips", "\xF5\xFB\xD5", 3, 2.5, true});
  EXPECT_EQ(r.text(), "Tabulon.xla!Ditch.aaDrawPips|\xF5\xFB\xD5|3|2.5|True");
  EXPECT_EQ(recordedCalls(*excel),
            (std::vector<std::string>{
                "excel.Run(Tabulon.xla!Ditch.aaDrawPips,\xF5\xFB\xD5,3,2.5,True)"}));
}

TEST_F(ComAutomation, APropertyPutIsGotBackWithItsType) {
  excel->set("Visible", true);
  excel->set("Value", 12.5);
  excel->set("Caption", "Munkaf\xFCzet");  // "Munkafüzet"
  EXPECT_TRUE(excel->get("Visible").truth());
  EXPECT_TRUE(std::holds_alternative<bool>(excel->get("Visible").v));
  EXPECT_EQ(excel->get("Value").number(), 12.5);
  EXPECT_EQ(excel->get("Caption").text(), "Munkaf\xFCzet");
  EXPECT_EQ(recordedCalls(*excel),
            (std::vector<std::string>{"excel.Visible=True", "excel.Value=12.5",
                                      "excel.Caption=Munkaf\xFCzet", "excel.Visible",
                                      "excel.Visible", "excel.Value", "excel.Caption"}));
}

TEST_F(ComAutomation, AnErrorTheServerRaisesCarriesItsDescriptionAndTheMember) {
  excel->call("FakeRaise", {"Run", "A makr\xF3 nem tal\xE1lhat\xF3"});  // "A makró nem található"
  AutomationError e = failure([&] { excel->call("Run", {"Missing.xla!M"}); });
  EXPECT_EQ(e.reason, Reason::Raised);
  EXPECT_EQ(e.subject, "Excel.Application.Run");
  EXPECT_EQ(e.detail, "A makr\xF3 nem tal\xE1lhat\xF3");
  EXPECT_EQ(excel->call("Run", {"M"}).text(), "M");  // only that call failed
}

TEST_F(ComAutomation, AnUnknownMemberAndAMissingClassAreReportedAsSuch) {
  AutomationError e = failure([&] { excel->get("NoSuchProperty"); });
  EXPECT_EQ(e.reason, Reason::UnknownMember);
  EXPECT_EQ(e.subject, "Excel.Application.NoSuchProperty");
  e = failure([&] { com->createObject("Korvane.NoSuchClass"); });
  EXPECT_EQ(e.reason, Reason::NotInstalled);
  EXPECT_EQ(e.subject, "Korvane.NoSuchClass");
  // Created, but nobody registered it as running.
  e = failure([&] { com->runningObject("Excel.Application"); });
  EXPECT_EQ(e.reason, Reason::NotRunning);
}

TEST_F(ComAutomation, ABusyServerIsAskedAgainUntilItAnswers) {
  excel->call("FakeBusy", {"Run", 2});
  EXPECT_EQ(excel->call("Run", {"M"}).text(), "M");
  EXPECT_EQ(
      recordedCalls(*excel),
      (std::vector<std::string>{"excel.Run(M) <busy>", "excel.Run(M) <busy>", "excel.Run(M)"}));
}

TEST_F(ComAutomation, AServerThatHangsEndsTheCallAtTheTimeLimit) {
  hosts::windows::ComApartment::setTimeLimit(std::chrono::milliseconds(1500));
  excel->call("FakeHang", {"Run", 6000});
  const auto start = std::chrono::steady_clock::now();
  AutomationError e = failure([&] { excel->call("Run", {"M"}); });
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(e.reason, Reason::NoAnswer);
  EXPECT_EQ(e.subject, "Excel.Application.Run");
  EXPECT_EQ(e.detail, "1.5");
  EXPECT_LT(took, std::chrono::seconds(5));
  // The hung conversation is given up; a new object gets a fresh one.
  EXPECT_EQ(failure([&] { excel->get("Visible"); }).reason, Reason::NoAnswer);
  hosts::windows::ComApartment::setTimeLimit(std::chrono::seconds(30));
  auto again = com->createObject("Excel.Application");
  EXPECT_EQ(again->call("Run", {"N"}).text(), "N");
}

TEST_F(ComAutomation, AServerThatCrashesInACallIsReportedGone) {
  excel->call("FakeCrash", {"Run"});
  EXPECT_EQ(failure([&] { excel->call("Run", {"M"}); }).reason, Reason::Gone);
}

TEST_F(ComAutomation, WmiFindsTheRunningProcessesOfAName) {
  // Under Wine the command line of another process is empty, but each process counts.
  EXPECT_GE(com->processCommandLines("korvane_tests.exe").size(), 1u);
  EXPECT_TRUE(com->processCommandLines("no-such-program.exe").empty());
}

}  // namespace
}  // namespace korvane::test
