// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "outline.h"

#include "characters.h"

#include "error.h"

#include <QStringDecoder>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace {

bool IsLoneSurrogate(const QString& name, qsizetype i) {
  if (name[i].isHighSurrogate()) {
    return i + 1 == name.size() || !name[i + 1].isLowSurrogate();
  }
  return name[i].isLowSurrogate() && (i == 0 || !name[i - 1].isHighSurrogate());
}

// Turns the escapes of one line's name into what they stand for.
QString Unescape(const QString& text) {
  if (text == QLatin1String("\\e")) {
    return QStringLiteral("");
  }
  QString name;
  name.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i].unicode() < 0x20 || text[i].unicode() == 0x7F) {
      throw Error(QStringLiteral("名称中有控制字符，须写作 \\t、\\r 或 \\uXXXX。"));
    }
    if (text[i] != QLatin1Char('\\')) {
      name += text[i];
      continue;
    }
    const QChar kind = ++i < text.size() ? text[i] : QChar();
    if (kind == QLatin1Char('\\')) {
      name += kind;
    } else if (kind == QLatin1Char('n')) {
      name += QLatin1Char('\n');
    } else if (kind == QLatin1Char('r')) {
      name += QLatin1Char('\r');
    } else if (kind == QLatin1Char('t')) {
      name += QLatin1Char('\t');
    } else {
      static const QString kHexDigits = QStringLiteral("0123456789abcdefABCDEF");
      const QString digits = kind == QLatin1Char('u') ? text.mid(i + 1, 4) : QString();
      bool isHex = digits.size() == 4;
      for (const QChar digit : digits) {
        isHex = isHex && kHexDigits.contains(digit);
      }
      if (!isHex) {
        throw Error(QStringLiteral("无法识别的转义“%1”。").arg(text.mid(i - 1, 6)));
      }
      const ushort unit = digits.toUShort(nullptr, 16);
      if (unit == 0) {  // the drivers would end the name here
        throw Error(QStringLiteral("名称不能含有空字符。"));
      }
      name += QChar(unit);
      i += 4;
    }
  }
  for (qsizetype i = 0; i < name.size(); ++i) {
    if (IsLoneSurrogate(name, i)) {
      throw Error(QStringLiteral("名称中有不成对的代理项（\\ud800 至 \\udfff）。"));
    }
  }
  if (Characters(name) > kMostCharacters) {
    throw Error(QStringLiteral("名称有 %1 个字符，最多 %2 个。")
                    .arg(Characters(name))
                    .arg(kMostCharacters));
  }
  return name;
}

QString NameOf(QByteArrayView line) {
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  const QString escaped = decoder.decode(line);
  if (decoder.hasError()) throw Error(QStringLiteral("不是有效的 UTF-8 文本。"));
  return Unescape(escaped);
}

// `text` in UTF-8 and without a byte order mark.
QByteArray WithoutMark(const QByteArray& text) {
  const auto encoding = QStringConverter::encodingForData(text);
  if (encoding == QStringConverter::Utf8) return text.sliced(3);
  if (encoding != QStringConverter::Utf16LE && encoding != QStringConverter::Utf16BE) return text;
  const QString decoded = QStringDecoder(*encoding).decode(text);
  if (!decoded.isValidUtf16()) throw Error(QStringLiteral("不是有效的 UTF-16 文本。"));
  return decoded.toUtf8();
}

}  // namespace

QString TextOf(std::vector<LineRemark> remarks) {
  constexpr size_t kMost = 50;
  std::stable_sort(remarks.begin(), remarks.end(),
                   [](const LineRemark& a, const LineRemark& b) { return a.line < b.line; });
  QStringList lines;
  for (const LineRemark& remark : remarks) {
    if (lines.size() == kMost) {
      lines += QStringLiteral("另有 %1 处。").arg(remarks.size() - kMost);
      break;
    }
    lines += QStringLiteral("第 %1 行：").arg(remark.line) + remark.text;
  }
  return lines.join(u'\n');
}

Outline ParseOutline(const QByteArray& text) {
  Outline outline;
  std::vector<qint32> path;  // the last word's number at every depth
  qsizetype lastDepth = -1;
  const QByteArray utf8 = WithoutMark(text);
  qsizetype position = 0;
  for (int line = 1; position < utf8.size(); ++line) {
    qsizetype end = utf8.indexOf('\n', position);
    end = end < 0 ? utf8.size() : end;
    QByteArrayView bytes = QByteArrayView(utf8).sliced(position, end - position);
    position = end + 1;
    if (bytes.endsWith('\r')) bytes.chop(1);
    qsizetype depth = 0;
    while (depth < bytes.size() && bytes[depth] == '\t') ++depth;
    bytes = bytes.sliced(depth);
    if (bytes.isEmpty()) {
      outline.faults.push_back({line, QStringLiteral("没有名称；空名称写作 \\e。")});
      continue;
    }
    // A refused line keeps its place, so that those below it are not refused for it.
    QString name;
    try {
      if (depth > lastDepth + 1) {
        throw Error(lastDepth < 0 ? QStringLiteral("第一个分类条目之前不能有分类词。")
                                  : QStringLiteral("缩进比上一行多出不止一级。"));
      }
      name = NameOf(bytes);
    } catch (const Error& error) {
      outline.faults.push_back({line, error.Description()});
    }
    lastDepth = depth;
    if (depth == 0) {
      outline.categories.push_back({std::move(name), line, {}});
      path.clear();
    } else if (!outline.categories.empty()) {
      auto& words = outline.categories.back().words;
      path.resize(static_cast<size_t>(depth - 1));
      words.push_back({std::move(name), path.empty() ? 0 : path.back(), line});
      path.push_back(static_cast<qint32>(words.size()));
    }
  }
  return outline;
}

void AppendOutlineLine(QByteArray& text, qsizetype depth, const QString& name) {
  QString line(depth, QLatin1Char('\t'));
  for (const QChar character : name) {
    const char16_t unit = character.unicode();
    if (unit == u'\\') {
      line += QLatin1String("\\\\");
    } else if (unit == u'\n') {
      line += QLatin1String("\\n");
    } else if (unit == u'\r') {
      line += QLatin1String("\\r");
    } else if (unit == u'\t') {
      line += QLatin1String("\\t");
    } else if (unit < 0x20 || unit == 0x7F || unit == QChar::ByteOrderMark) {
      line += QStringLiteral("\\u%1").arg(uint{unit}, 4, 16, QLatin1Char('0'));
    } else {
      line += character;
    }
  }
  if (name.isEmpty()) {
    line += QLatin1String("\\e");
  }
  line += QLatin1Char('\n');
  text += line.toUtf8();
}
