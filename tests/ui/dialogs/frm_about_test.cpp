// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_about.h"

#include "registry.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

const QString kKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");

class FrmAboutTest : public testing::Test {
 protected:
  FrmAboutTest() {
    qputenv("XDG_CONFIG_DIRS", QFile::encodeName(folder_.path()));
    qputenv("PATH", "/nowhere");
  }

  void Write(const QString& name, const QByteArray& content) const {
    const QString path = folder_.filePath(name);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }

  // The machine-wide tree with one value at each of the two locations.
  void WriteTree(const QByteArray& path, const QByteArray& folder) const {
    QByteArray content = "[SOFTWARE\\Microsoft\\Shared Tools Location]\n";
    if (!folder.isEmpty()) content += "MSINFO = " + folder + '\n';
    if (!path.isEmpty()) content += "[SOFTWARE\\Microsoft\\Shared Tools\\MSINFO]\nPATH = " + path;
    Write(QStringLiteral("hcwordlib/registry.conf"), content);
  }

  // A program that leaves the file `mark` behind, with the number of its arguments.
  QByteArray WriteProgram(const QString& name) const {
    Write(name, "#!/bin/sh\necho $# > '" + QFile::encodeName(Mark()) + ".new'\n/bin/mv '" +
                    QFile::encodeName(Mark()) + ".new' '" + QFile::encodeName(Mark()) + "'\n");
    return QFile::encodeName(folder_.filePath(name));
  }
  QString Mark() const { return folder_.filePath(QStringLiteral("mark")); }

  // Presses the button; the text of the message that came up, which is closed, if any.
  QString PressSysInfo() {
    frmAbout about;
    about.show();
    QString message;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&] {
      if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        message = box->windowTitle() + QLatin1Char('|') + box->text();
        box->accept();
      }
    });
    closer.start();
    about.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->click();
    EXPECT_TRUE(about.isVisible());
    return message;
  }

  void ExpectStarted() {
    EXPECT_EQ(PressSysInfo(), QString());
    ASSERT_TRUE(QTest::qWaitFor([this] { return QFile::exists(Mark()); }));
    QFile mark(Mark());
    ASSERT_TRUE(mark.open(QIODevice::ReadOnly));
    EXPECT_EQ(mark.readAll(), "0\n");
    mark.remove();
  }

  const QTemporaryDir folder_;
};

TEST_F(FrmAboutTest, StartsTheProgramOfTheFirstLocationThatIsThere) {
  const QByteArray program = WriteProgram(QStringLiteral("系统 信息 $(touch x)"));
  WriteProgram(QStringLiteral("tools/MSINFO32.EXE"));
  const QByteArray tools = "text:" + QFile::encodeName(folder_.filePath(QStringLiteral("tools")));
  WriteTree("text:" + program, "text:/nowhere");
  ExpectStarted();
  WriteTree({}, tools);
  ExpectStarted();

  const QString refused = QStringLiteral("HCWordLib|此时系统信息不可用");
  const std::pair<QByteArray, QByteArray> trees[] = {
      {{}, {}},
      {{}, "text:" + QFile::encodeName(folder_.path())},  // a folder without the program
      {"text:/nowhere/program", tools},                   // the first location is not checked
      {"dword:1", tools},
      {"binary:2f 62", tools},
      {"text:", tools}};
  for (const auto& [path, folder] : trees) {
    WriteTree(path, folder);
    EXPECT_EQ(PressSysInfo(), refused) << path.data();
  }
  EXPECT_FALSE(QFile::exists(Mark()));
}

TEST_F(FrmAboutTest, ValuesBecomeTextByTheirType) {
  struct Case {
    const char* value;
    const char* before;
    bool found;
    const char* after;
  };
  const Case cases[] = {
      {"text:/usr/bin/信息", "x", true, "/usr/bin/信息"},
      {"text:", "x", true, ""},
      {"dword:12345678", "", true, "&h12345678"},
      {"dword:0f0a0b01", "", true, "&hFAB1"},  // no leading zeros
      {"dword:00000102", "", true, "&h12"},    // cut at the first zero byte
      {"dword:00000100", "", true, "&h"},
      {"dword:ffe9807f", "", true, "&hFFE9807F"},
      {"dword:000000c4", "old", true, "&holdC4"},
      {"binary:41 42", "old", true, "old"},
      {nullptr, "old", false, ""},
  };
  for (const Case& c : cases) {
    WriteTree(c.value, {});
    QString value = QString::fromUtf8(c.before);
    EXPECT_EQ(frmAbout::GetKeyValue(kHKeyLocalMachine, kKey, QStringLiteral("PATH"), value),
              c.found);
    EXPECT_EQ(value, QString::fromUtf8(c.after)) << (c.value ? c.value : "none");
  }
  WriteTree("text:" + QByteArray(1024, 'x'), {});
  QString value = QStringLiteral("old");
  EXPECT_FALSE(frmAbout::GetKeyValue(kHKeyLocalMachine, kKey, QStringLiteral("PATH"), value));
  EXPECT_EQ(value, QString());
}

TEST_F(FrmAboutTest, IsFixedModalAndClosedByTheKeyboard) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
    frmAbout about;
    about.open();
    EXPECT_TRUE(about.isModal());
    EXPECT_EQ(about.minimumSize(), about.maximumSize());
    QTest::keyClick(about.focusWidget(), key);
    EXPECT_FALSE(about.isVisible());
  }
}

TEST_F(FrmAboutTest, CutsNoTextInALargeFont) {
  const QFont normal = QApplication::font();
  QFont large = normal;
  large.setPointSizeF(normal.pointSizeF() * 2);
  QApplication::setFont(large);
  frmAbout about;
  about.show();
  const auto labels = about.findChildren<QLabel*>();
  ASSERT_EQ(labels.size(), 4);
  for (const QLabel* label : labels) {
    const int needed = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                  : label->sizeHint().height();
    EXPECT_GE(label->height(), needed) << qPrintable(label->objectName());
    if (!label->wordWrap()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << qPrintable(label->objectName());
    }
  }
  QApplication::setFont(normal);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
