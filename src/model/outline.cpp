// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "outline.h"

#include "cell_reader.h"

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

void RequireFitting(const QString& name) {
  if (Characters(name) <= kMostCharacters) return;
  throw Error(
      QStringLiteral("名称有 %1 个字符，最多 %2 个。").arg(Characters(name)).arg(kMostCharacters));
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
  RequireFitting(name);
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

// The lines that the next one may hang on, each more indented than the one before.
struct LineAbove {
  qsizetype depth;
  qint32 number;  // of its word, 0 for a category
};

// Appends a line to the last one of `path` that is less indented, or as a category.
void Append(Outline& outline, std::vector<LineAbove>& path, qsizetype depth, QString name,
            int line) {
  while (!path.empty() && path.back().depth >= depth) path.pop_back();
  if (path.empty()) {
    outline.categories.push_back({std::move(name), line, {}});
    path.push_back({depth, 0});
  } else {
    auto& words = outline.categories.back().words;
    words.push_back({std::move(name), path.back().number, line});
    path.push_back({depth, static_cast<qint32>(words.size())});
  }
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
  std::vector<LineAbove> path;
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
      if (depth > (path.empty() ? 0 : path.back().depth + 1)) {
        throw Error(path.empty() ? QStringLiteral("第一个分类条目之前不能有分类词。")
                                 : QStringLiteral("缩进比上一行多出不止一级。"));
      }
      name = NameOf(bytes);
    } catch (const Error& error) {
      outline.faults.push_back({line, error.Description()});
    }
    Append(outline, path, depth, std::move(name), line);
  }
  return outline;
}

Outline ParseList(const QString& text) {
  Outline outline;
  std::vector<LineAbove> path;
  CellReader cells(text);
  while (!cells.AtEnd()) {
    const int line = cells.Line();
    QString name;
    qsizetype depth = 0;
    bool hasMore = true;
    for (QString cell; hasMore;) {
      hasMore = cells.Read(cell);
      if (!name.isEmpty()) continue;
      if (QStringView(cell).trimmed().isEmpty()) {
        ++depth;
      } else {
        name = OnOneLine(cell);
      }
    }
    if (name.isEmpty()) continue;
    try {
      RequireFitting(name);
    } catch (const Error& error) {
      outline.faults.push_back({line, error.Description()});
      name = QString();
    }
    Append(outline, path, depth, std::move(name), line);
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
