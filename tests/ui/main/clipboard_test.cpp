// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "failing_step.h"
#include "rows.h"
#include "shared_objects.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QToolTip>
#include <QUrl>

namespace {

class ClipboardTest : public MainWindowTest {
 protected:
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(window_->windowHandle(), key, modifiers);
  }
  void Copy(const char* path) {
    Select(path);
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  }
  // Pastes into the node, what was copied or this text: what is below it then, and what is told.
  std::string Paste(const char* path, const QString& text = QString()) {
    if (!text.isNull()) QApplication::clipboard()->setText(text);
    QToolTip::hideText();
    Select(path);
    Press(Qt::Key_V);
    Audit();
    return Tree(At(path)) + " | " + QToolTip::text().toStdString();
  }
};

const QString kLongest = QStringLiteral("长").repeated(4000);

TEST_F(ClipboardTest, EachLineBecomesAWordAtItsDepth) {
  const std::pair<const char*, const char*> cases[] = {
      {"甲\r\n乙\t800\t\"两\n行\"\r\n\r\n  \n丙", "甲 乙 丙 | 已加入 3 个分类词，跳过 0 个。"},
      {"\t\t甲\n\t\t\t\t乙\n\t\t\t\t\t丙\n\t\t\t丁\n戊",
       "甲(乙(丙) 丁) 戊"},  // however far indented
      {"\"a\n\"\"b\"\"\tc\"\t1\r丙\n\"引\"\n\"乙\nC:\\temp\\",
       "a \"b\" c 丙 \"引\" \"乙 C:\\temp\\"},
      {" 甲 \n'；%_\\n𠮷", " 甲  '；%_\\n𠮷"},
      {"甲\n\t乙\n丙\n\t乙\n\t\t丁\n甲\n\t戊",
       "甲(乙 戊) 丙 | 已加入 4 个分类词，跳过 3 个（名称已有）。"},
      {"\n \n", " | 剪贴板中没有可以粘贴的文字。"},
  };
  for (const auto& [text, expected] : cases) {
    OpenWindow();
    EXPECT_THAT(Paste("空类", QString::fromUtf8(text)), testing::StartsWith(expected));
    EXPECT_EQ(Selected(), "空类");
  }
  // Below a word, where some are there, and once more, which goes on where it stopped.
  EXPECT_THAT(Paste("车削/粗车", QStringLiteral("粗车端面\n\t甲\n精车\n\t乙\n丙")),
              testing::StartsWith(
                  "粗车外圆(粗车外圆至φ50) 粗车端面(甲) 丙 | 已加入 2 个分类词，跳过 3 个"));
  EXPECT_EQ(List(), "粗车外圆 粗车端面 丙");
  EXPECT_THAT(
      Paste("", QStringLiteral("空类\n\t甲\n热处理\n\t粗车\n\t\t乙\n磨削\n\t丙\n磨削\n\t丁")),
      testing::EndsWith("热处理(淬火 粗车(乙)) 空类(甲) 磨削(丙 丁) | 已加入 1 个分类条目、4 "
                        "个分类词，跳过 4 个（名称已有）。"));
}

TEST_F(ClipboardTest, ARowThatFailsIsTheEnd) {
  EXPECT_THAT(Paste("空类", QStringLiteral("甲\n\t%1\n%1长\n乙").arg(kLongest)),
              testing::AllOf(testing::StartsWith("甲("), testing::EndsWith(") | ")));
  EXPECT_EQ(Messages(),
            "HCWordLib|第 3 行没有能加入，粘贴到此为止。\n名称有 4001 个字符，最多 4000 个。\n"
            "前面的各行：已加入 2 个分类词，跳过 0 个。|information|ok\n");
  // A row that the database refuses, among many of one statement.
  TheConn().Execute(QStringLiteral("delete from Items where SortID <> 7"));
  TheConn().Execute(QStringLiteral(
      "insert into Items (SortID,ID,FatherID,NodeName) values (9,8,0,'x'),(12,6,0,'y')"));
  TheConn().Execute(QStringLiteral("create unique index OneOfANumber on Items (ID)"));
  OpenWindow(false);
  EXPECT_EQ(Paste("空类", QStringLiteral("甲\ny\n\t乙\n丙")), "y 甲 | ");
  EXPECT_THAT(Messages(),
              testing::AllOf(
                  testing::StartsWith("HCWordLib|第 3 行"),
                  testing::HasSubstr("前面的各行：已加入 1 个分类词，跳过 1 个（名称已有）。|")));
  EXPECT_THAT(Paste("", QStringLiteral("磨削\n镗削\n\t甲\n\t乙")),
              testing::EndsWith("磨削 镗削 | "));
  EXPECT_THAT(Messages(), testing::StartsWith("HCWordLib|第 3 行"));
  // What fails otherwise leaves the library as it was or what was stored before.
  for (int step = 1; step < 12; ++step) {
    FailStep(TheConn(), step);
    Select("");
    QApplication::clipboard()->setText(QStringLiteral("新%1\n\t甲").arg(step));
    Press(Qt::Key_V);
    TheConn().SetStepHook({});
    Audit();
  }
  EXPECT_THAT(Messages(), testing::HasSubstr("没有能粘贴，词句库没有改动。"));
}

TEST_F(ClipboardTest, ABranchIsCopiedAsAnOutlineThatComesBack) {
  TheConn().Execute(
      QStringLiteral("update Items set NodeName='C:\\temp\n\t' where SortID=7 and ID=2"));
  OpenWindow(false);
  Copy("车削/粗车");
  EXPECT_EQ(QApplication::clipboard()->text(),
            QStringLiteral("粗车\n\tC:\\\\temp\\n\\t\n\t\t粗车外圆至φ50\n\t粗车端面\n"));
  EXPECT_EQ(Paste("空类"),
            "粗车(C:\\temp\n\t(粗车外圆至φ50) 粗车端面) | 已加入 4 个分类词，跳过 0 个。");
  Copy("");
  EXPECT_THAT(Paste(""), testing::HasSubstr("已加入 0 个分类条目、0 个分类词，跳过 14 个"));
  // The list copies the item that has the focus; the name alone is what is shown.
  Click("热处理");
  lvListView->setFocus();
  PressKey(Qt::Key_Down);
  Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("粗车\n"));
  Press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("粗车"));
  tvTreeView->setFocus();
  Press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("热处理"));
}

TEST_F(ClipboardTest, WhatIsNoTextIsNotPasted) {
  auto files = std::make_unique<QMimeData>();
  files->setUrls({QUrl::fromLocalFile(QStringLiteral("/甲"))});
  auto damaged = std::make_unique<QMimeData>();  // by another program
  damaged->setText(QStringLiteral("甲"));
  damaged->setData(QStringLiteral("application/x-hcwordlib-outline"), "\xFF\xFE\x41");
  for (std::unique_ptr<QMimeData>* data : {&files, &damaged}) {
    QApplication::clipboard()->setMimeData(data->release());
    EXPECT_EQ(Paste("空类") + Messages(), " | 剪贴板中没有可以粘贴的文字。");
  }
}

TEST_F(ClipboardTest, OneWordFollowsAnother) {
  const auto next = [this](const char* text) {
    Type(text, 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    return Tree() + '|' + SelectedText();
  };
  Select("热处理");
  Choose("mnuEditNewWord");
  const auto isTold = [] { return QToolTip::text().startsWith(QStringLiteral("按 Ctrl+Enter")); };
  EXPECT_TRUE(QTest::qWaitFor(isTold));
  EXPECT_THAT(next("甲"), testing::EndsWith("热处理(淬火 粗车 甲 新加词) 空类|新加词"));
  EXPECT_FALSE(QToolTip::isVisible());
  EXPECT_THAT(next("甲"), testing::EndsWith("热处理(淬火 粗车 甲 新加词) 空类|新加词"));
  EXPECT_EQ(Messages(), "HCWordLib|有相同名称的分类词。|information|ok\n");
  EXPECT_THAT(next("乙"), testing::EndsWith("热处理(淬火 粗车 甲 乙 新加词) 空类|新加词"));
  Type("丙");
  Select("空类");
  Choose("mnuEditRename");
  EXPECT_THAT(next("满类"), testing::EndsWith("满类 新建条目|新建条目"));
  Audit();
}

}  // namespace
