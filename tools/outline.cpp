// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "outline.h"

#include <QHash>
#include <QStringDecoder>

namespace {

// As many as the tables take: characters of Unicode, a pair of surrogates is one.
constexpr qsizetype kLongestName = 4000;

bool IsLoneSurrogate(const QString& name, qsizetype i) {
  if (name[i].isHighSurrogate()) {
    return i + 1 == name.size() || !name[i + 1].isLowSurrogate();
  }
  return name[i].isLowSurrogate() && (i == 0 || !name[i - 1].isHighSurrogate());
}

// Turns the escapes of one line's name into what they stand for.
QString Unescape(const QString& text, int line) {
  if (text == QLatin1String("\\e")) {
    return QString();
  }
  QString name;
  name.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i].unicode() < 0x20 || text[i].unicode() == 0x7F) {
      throw LineError(line, QStringLiteral("名称中有控制字符，须写作 \\t、\\r 或 \\uXXXX。"));
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
        throw LineError(line, QStringLiteral("无法识别的转义“%1”。").arg(text.mid(i - 1, 6)));
      }
      const ushort unit = digits.toUShort(nullptr, 16);
      if (unit == 0) {  // the drivers would end the name here
        throw LineError(line, QStringLiteral("名称不能含有空字符。"));
      }
      name += QChar(unit);
      i += 4;
    }
  }
  qsizetype length = 0;
  for (qsizetype i = 0; i < name.size(); ++i) {
    length += name[i].isLowSurrogate() ? 0 : 1;
    if (IsLoneSurrogate(name, i)) {
      throw LineError(line, QStringLiteral("名称中有不成对的代理项（\\ud800 至 \\udfff）。"));
    }
  }
  if (length > kLongestName) {
    throw LineError(line,
                    QStringLiteral("名称有 %1 个字符，最多 %2 个。").arg(length).arg(kLongestName));
  }
  return name;
}

// The lines in which names were given first; refuses the second.
class GivenNames {
 public:
  void Add(const QString& name, int line, const QString& kind) {
    if (const auto first = lines_.constFind(name); first != lines_.constEnd()) {
      throw LineError(line,
                      QStringLiteral("%1“%2”与第 %3 行重名。").arg(kind, name).arg(first.value()));
    }
    lines_.insert(name, line);
  }
  void Clear() { lines_.clear(); }

 private:
  QHash<QString, int> lines_;
};

}  // namespace

Error LineError(int line, const QString& reason) {
  return Error(QStringLiteral("第 %1 行：").arg(line) + reason);
}

std::vector<OutlineCategory> ParseOutline(const QByteArray& text) {
  std::vector<OutlineCategory> categories;
  std::vector<qint32> path;  // the last word's number at every depth
  GivenNames categoryNames;
  GivenNames wordNames;
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);

  const QByteArrayView byteOrderMark("\xEF\xBB\xBF");
  qsizetype position = text.startsWith(byteOrderMark) ? byteOrderMark.size() : 0;
  for (int line = 1; position < text.size(); ++line) {
    qsizetype end = text.indexOf('\n', position);
    end = end < 0 ? text.size() : end;
    QByteArrayView bytes = QByteArrayView(text).sliced(position, end - position);
    position = end + 1;
    if (bytes.endsWith('\r')) {
      bytes.chop(1);
    }
    qsizetype depth = 0;
    while (depth < bytes.size() && bytes[depth] == '\t') {
      ++depth;
    }
    bytes = bytes.sliced(depth);
    if (bytes.isEmpty()) {
      throw LineError(line, QStringLiteral("没有名称；空名称写作 \\e。"));
    }
    const QString escaped = decoder.decode(bytes);
    if (decoder.hasError()) {
      throw LineError(line, QStringLiteral("不是有效的 UTF-8 文本。"));
    }
    QString name = Unescape(escaped, line);

    if (depth == 0) {
      categoryNames.Add(name, line, QStringLiteral("分类条目"));
      categories.push_back({std::move(name), line, {}});
      path.clear();
      wordNames.Clear();
      continue;
    }
    if (categories.empty()) {
      throw LineError(line, QStringLiteral("第一个分类条目之前不能有分类词。"));
    }
    if (depth > static_cast<qsizetype>(path.size()) + 1) {
      throw LineError(line, QStringLiteral("缩进比上一行多出不止一级。"));
    }
    wordNames.Add(name, line, QStringLiteral("分类词"));
    auto& words = categories.back().words;
    path.resize(depth - 1);
    words.push_back({std::move(name), path.empty() ? 0 : path.back(), line});
    path.push_back(static_cast<qint32>(words.size()));
  }
  return categories;
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
      line += QStringLiteral("\\u%1").arg(unit, 4, 16, QLatin1Char('0'));
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
