#include "platform/background_task.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <string>

namespace ardane {
namespace {

/// A task that is at work until it is let go.
class Retenue {
 public:
  std::function<void()> tâche(std::string &fait) {
    return [this, &fait] {
      commencée_.set_value();
      libre_.get_future().wait();
      fait += "a";
    };
  }
  void attendre_le_début() { commencée_.get_future().wait(); }
  void lâcher() { libre_.set_value(); }

 private:
  std::promise<void> commencée_, libre_;
};

class BackgroundTask : public testing::Test {
 protected:
  Retenue retenue;
  std::string fait;
  Tâche_de_fond fond;  ///< last: it ends before what it writes to
};

TEST_F(BackgroundTask, IsDoneInAnotherThreadAndCanBeWaitedFor) {
  std::thread::id fil;
  fond.confier([&] { fil = std::this_thread::get_id(); });
  fond.attendre();
  EXPECT_NE(fil, std::thread::id());
  EXPECT_NE(fil, std::this_thread::get_id());
}

TEST_F(BackgroundTask, WithoutATaskNobodyWaits) {
  fond.attendre();
  fond.abandonner();
}

TEST_F(BackgroundTask, OneThatHasNotBegunGivesWayToTheNext) {
  fond.confier(retenue.tâche(fait));
  retenue.attendre_le_début();
  fond.confier([&] { fait += "b"; });
  fond.confier([&] { fait += "c"; });
  retenue.lâcher();
  fond.attendre();
  EXPECT_EQ(fait, "ac");
}

TEST_F(BackgroundTask, GivingUpDropsWhatHasNotBegunAndWaitsForWhatHas) {
  fond.confier(retenue.tâche(fait));
  retenue.attendre_le_début();
  // As it is dropped it lets the first one go on.
  const auto lâcher = [&](void *) { retenue.lâcher(); };
  fond.confier([&, dernier = std::shared_ptr<void>(nullptr, lâcher)] { fait += "b"; });
  fond.abandonner();
  EXPECT_EQ(fait, "a");
  fond.confier([&] { fait += "d"; });
  fond.attendre();
  EXPECT_EQ(fait, "ad");
}

TEST_F(BackgroundTask, WhatWasGivenIsDoneBeforeTheEnd) {
  {
    Tâche_de_fond court;
    court.confier([&] { fait += "a"; });
  }
  EXPECT_EQ(fait, "a");
}

}  // namespace
}  // namespace ardane
