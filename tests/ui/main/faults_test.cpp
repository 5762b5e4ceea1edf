// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "failing_step.h"
#include "rows.h"
#include "shared_objects.h"

#include <QFile>
#include <QToolTip>

#include <cstdlib>

namespace {

const std::string kWhole =
    "车削(粗车(粗车外圆(粗车外圆至φ50) 粗车端面) 精车) 热处理(淬火 粗车) 空类";
constexpr int kInconsistent = 2;
constexpr int kStored = 3;

class FaultsTest : public MainWindowTest {
 protected:
  // Runs the tool bar's command on the node of a fresh library, which was clicked, with its n-th
  // database step failing. False when the command has fewer.
  bool RunWithFault(const char* button, const char* path, int n) {
    OpenWindow();
    Click(path);
    AnswerYes();
    const auto stepsLeft = FailStep(TheConn(), n);
    PressButton(button);
    const bool failed = *stepsLeft <= 0;
    TheConn().SetStepHook({});
    EXPECT_TRUE(Find<QToolButton>(button)->isEnabled());
    EXPECT_EQ(QToolTip::text().contains(QStringLiteral("injected fault")), failed);
    QToolTip::hideText();
    return failed;
  }
};

TEST_F(FaultsTest, ANewWordThatIsNotStoredIsNotShown) {
  int n = 1;
  for (; RunWithFault("新词", "车削", n); ++n) {
    EXPECT_EQ(Tree(), kWhole);
    EXPECT_EQ(Selected(), "车削");
    EXPECT_FALSE(tvTreeView->IsEditing());
    Audit();
    PressButton("新词");  // works again
    EXPECT_EQ(Selected(), "车削/新加词");
    Audit();
  }
  EXPECT_EQ(n, 4);  // the search for a name, the number and the row can fail
}

TEST_F(FaultsTest, ADeletedBranchGoesAsFarAsItsRowsWent) {
  const std::string gone = "车削(精车) 热处理(淬火 粗车) 空类";
  for (int n = 1; n <= 5; ++n) {
    EXPECT_EQ(RunWithFault("删除", "车削/粗车", n), n <= 4);
    EXPECT_EQ(Tree(), n == 1 ? kWhole : gone);
    EXPECT_EQ(List(), n == 1 ? "粗车外圆 粗车端面" : "");
    Audit(n == 1 || n == 5 ? Orphans::kNone : Orphans::kAllowed);
  }
  for (int n = 1; n <= 3; ++n) {
    EXPECT_EQ(RunWithFault("删除", "车削", n), n <= 2);
    EXPECT_EQ(Tree(), n == 1 ? kWhole : "热处理(淬火 粗车) 空类");
    EXPECT_EQ(List(), n == 1 ? "粗车 精车" : "");
    Audit(n == 2 ? Orphans::kAllowed : Orphans::kNone);
  }
}

// Where no identifier can be drawn the program ends; any other failure leaves it without the node.
TEST_F(FaultsTest, ANewCategoryIsStoredAndShownOrNeither) {
  std::string endings;
  for (int status = 0, n = 1; status != kStored && n < 20; ++n) {
    CloseWindow();  // the child inherits no connection
    const auto ended = [&status](int code) {
      status = WEXITSTATUS(code);
      return WIFEXITED(code) && status != kInconsistent;
    };
    const auto create = [this, n] {
      const bool failed = RunWithFault("新条目", "", n);
      EXPECT_EQ(Tree() + Selected(), failed ? kWhole : kWhole + " 新建条目新建条目");
      Audit();
      std::_Exit(HasFailure() ? kInconsistent : failed ? 0 : kStored);
    };
    EXPECT_EXIT(create(), ended, "");
    endings += std::to_string(status);
    OpenWindow(false);  // the next start finds everything in order
    EXPECT_EQ(Tree(), status == kStored ? kWhole + " 新建条目" : kWhole);
    Audit();
  }
  EXPECT_EQ(endings, "0111003");
}

}  // namespace
