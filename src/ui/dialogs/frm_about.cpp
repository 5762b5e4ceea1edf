// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_about.h"

#include "error.h"
#include "event_guard.h"
#include "message_box.h"
#include "programs.h"
#include "registry.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr int kIconSize = 64;
constexpr int kMargin = 20;
constexpr int kSpacing = 12;
constexpr int kCharactersPerLine = 20;
constexpr qreal kTitleScale = 1.6;

constexpr qsizetype kMaxValueSize = 1024;

QLabel* MakeLabel(QWidget* parent, const char* name, const QString& text) {
  auto* const label = new QLabel(text, parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  return label;
}

QWidget* MakeLine(QWidget* parent, const char* name, QPalette::ColorRole color) {
  auto* const line = new QWidget(parent);
  line->setObjectName(QLatin1String(name));
  line->setFixedHeight(1);
  line->setBackgroundRole(color);
  line->setAutoFillBackground(true);
  return line;
}

QPushButton* MakeButton(QWidget* parent, const char* name, const QString& text) {
  auto* const button = new QPushButton(text, parent);
  button->setObjectName(QLatin1String(name));
  button->setMinimumWidth(button->sizeHint().width() + kSpacing);  // styles leave little room
  return button;
}

QString SysInfoPath() {
  QString path;
  if (frmAbout::GetKeyValue(kHKeyLocalMachine,
                            QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                            QStringLiteral("PATH"), path)) {
    return path;
  }
  if (frmAbout::GetKeyValue(kHKeyLocalMachine,
                            QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"),
                            QStringLiteral("MSINFO"), path)) {
    path += QLatin1String("\\MSINFO32.EXE");
    if (FileExists(path)) return path;
  }
  throw Error(QStringLiteral("没有系统信息程序"));
}

}  // namespace

frmAbout::frmAbout(QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowCloseButtonHint) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("关于 HCWordLib"));
  setModal(true);

  QLabel* const picIcon = MakeLabel(this, "picIcon", {});
  picIcon->setPixmap(QIcon(QStringLiteral(":/icons/hcwordlib.svg"))
                         .pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
  picIcon->setAccessibleName(QStringLiteral("程序图标"));

  QLabel* const lblTitle = MakeLabel(this, "lblTitle", QStringLiteral("衡川词句库"));
  QFont titleFont = lblTitle->font();
  titleFont.setPointSizeF(titleFont.pointSizeF() * kTitleScale);
  titleFont.setBold(true);
  lblTitle->setFont(titleFont);
  QLabel* const lblVersion = MakeLabel(this, "lblVersion", QStringLiteral("版本:2011"));
  QLabel* const lblDescription =
      MakeLabel(this, "lblDescription", QStringLiteral("本程序是通用在线词句库的维护程序。"));
  lblDescription->setWordWrap(true);
  lblDescription->setFixedWidth(
      lblDescription->fontMetrics().horizontalAdvance(QString(kCharactersPerLine, u'词')));

  QPushButton* const cmdOK = MakeButton(this, "cmdOK", QStringLiteral("确定"));
  cmdOK->setDefault(true);
  connect(cmdOK, &QPushButton::clicked, this, Guarded([this](bool) { cmdOK_Click(); }));
  QPushButton* const cmdSysInfo = MakeButton(this, "cmdSysInfo", QStringLiteral("系统信息(&S)..."));
  connect(cmdSysInfo, &QPushButton::clicked, this, Guarded([this](bool) { cmdSysInfo_Click(); }));

  auto* const texts = new QVBoxLayout;
  texts->setSpacing(kSpacing / 2);
  texts->addWidget(lblTitle);
  texts->addWidget(lblVersion);
  texts->addSpacing(kSpacing / 2);
  texts->addWidget(lblDescription);
  auto* const top = new QHBoxLayout;
  top->setSpacing(kMargin);
  top->addWidget(picIcon, 0, Qt::AlignTop);
  top->addLayout(texts);
  auto* const separator = new QVBoxLayout;
  separator->setSpacing(0);
  separator->addWidget(MakeLine(this, "Line1", QPalette::Mid));
  separator->addWidget(MakeLine(this, "Line2", QPalette::Light));
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(kSpacing);
  buttons->addWidget(cmdSysInfo);
  buttons->addStretch();
  buttons->addWidget(cmdOK);

  auto* const all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kSpacing);
  all->addLayout(top);
  all->addSpacing(kSpacing / 2);
  all->addLayout(separator);
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);

  setTabOrder(cmdOK, cmdSysInfo);
  cmdOK->setFocus();
}

void frmAbout::cmdOK_Click() {
  accept();
}

void frmAbout::cmdSysInfo_Click() {
  StartSysInfo();
}

void frmAbout::StartSysInfo() {
  try {
    StartProgram(SysInfoPath());
  } catch (const Error&) {
    MsgBox(this, QStringLiteral("此时系统信息不可用"));
  }
}

bool frmAbout::GetKeyValue(quint32 KeyRoot, const QString& KeyName, const QString& SubKeyRef,
                           QString& KeyVal) {
  std::array<char, kMaxValueSize> buffer{};
  quint32 type = 0;
  const std::optional<RegistryKey> key = RegistryKey::Open(KeyRoot, KeyName, kKeyAllAccess);
  if (!key || !key->Query(SubKeyRef, type, buffer.data(), buffer.size())) {
    KeyVal.clear();
    return false;
  }
  const QByteArray text(buffer.data(), qstrnlen(buffer.data(), buffer.size()));
  if (type == kRegSz) {
    KeyVal = QString::fromLocal8Bit(text);
  } else if (type == kRegDword) {
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
      KeyVal += QString::number(static_cast<uchar>(text[i]), 16).toUpper();
    }
    KeyVal.prepend(QLatin1String("&h"));
  }
  return true;
}
