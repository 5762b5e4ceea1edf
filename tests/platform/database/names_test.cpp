// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// Names of every kind are stored, found and changed exactly, on every engine.

#include "engines.h"
#include "recordset.h"

#include <map>

namespace {

class NamesTest : public EngineTest {
 protected:
  static QString Quoted(QString name) {
    return u'\'' + name.replace(QLatin1String("'"), QLatin1String("''")) + u'\'';
  }

  // Every name of the list, from the first word's to the last one's, differs from each other only
  // in what a sloppy comparison, an unescaped statement or a narrow encoding would lose.
  static const QStringList& Names() {
    static const QStringList kNames = {
        QStringLiteral("车外圆"),
        QStringLiteral("车外圆 "),
        QStringLiteral(" 车外圆"),
        QStringLiteral("车外圆　"),
        QStringLiteral("M6"),
        QStringLiteral("m6"),
        QStringLiteral("Ｍ６"),
        QStringLiteral("𠮷野家"),
        QStringLiteral("𠀀野家"),
        QStringLiteral("é"),
        QStringLiteral("e\u0301"),
        QStringLiteral("e"),
        QStringLiteral("👩‍🔧🔩"),
        QStringLiteral("👩🔧🔩"),
        QStringLiteral("שלום עולם"),
        QStringLiteral("it's"),
        QStringLiteral("it''s"),
        QStringLiteral("'"),
        QStringLiteral("''"),
        QStringLiteral("' or '1'='1"),
        QStringLiteral("\""),
        QStringLiteral("\\"),
        QStringLiteral("\\\\"),
        QStringLiteral("\\'"),
        QStringLiteral("C:\\n\\0\\"),
        QStringLiteral("100%"),
        QStringLiteral("100_"),
        QStringLiteral("%d%s"),
        QStringLiteral("a;b"),
        QStringLiteral("'; delete from Items; --"),
        QStringLiteral("-- 注释"),
        QStringLiteral("/* 注释 */"),
        QStringLiteral("# 注释"),
        QStringLiteral("?"),
        QStringLiteral("你?我:b $1 $$ @x"),
        QStringLiteral("{d '2020-01-01'}"),
        QStringLiteral("{fn now()}"),
        QStringLiteral("delete * from Items"),
        QStringLiteral("制表\t换行\n回车\r"),
        QStringLiteral("NULL"),
        QString(),
        QStringLiteral(" "),
    };
    return kNames;
  }

  // The words of category 1 by their identifiers.
  std::map<qint32, QString> Words() {
    std::map<qint32, QString> words;
    Recordset set;
    set.Open(QStringLiteral("select * from Items where SortID=1 Order by ID,FatherID"),
             connection_);
    for (; !set.IsEof(); set.MoveNext()) {
      words[set.FieldInteger("ID")] = set.FieldText("NodeName");
    }
    return words;
  }

  static std::map<qint32, QString> Numbered(const QStringList& names) {
    std::map<qint32, QString> words;
    for (const QString& name : names) words[static_cast<qint32>(words.size()) + 1] = name;
    return words;
  }

  void Add(const QStringList& names) {
    Recordset set;
    set.Open(QStringLiteral("select * from Items where  SortID=1 order by ID"), connection_,
             CursorType::kDynamic, LockType::kOptimistic);
    for (const QString& name : names) {
      const qint32 next = set.RecordCount() + 1;
      set.AddNew();
      set.SetField("SortID", 1);
      set.SetField("FatherID", 0);
      set.SetField("NodeName", name);
      set.SetField("ID", next);
      set.Update();
    }
  }
};

TEST_P(NamesTest, AreStoredAndFoundExactly) {
  Add(Names());
  ASSERT_EQ(Words(), Numbered(Names()));
  Recordset all;
  all.Open(QStringLiteral("Select * from Items where SortID=1"), connection_);
  qint32 id = 0;
  for (const QString& name : Names()) {
    SCOPED_TRACE(name.toStdString());
    ++id;
    Recordset same;
    same.Open(
        QStringLiteral("select * from Items where NodeName=%1 And SortID=1").arg(Quoted(name)),
        connection_, CursorType::kStatic, LockType::kUnspecified);
    ASSERT_EQ(same.RecordCount(), 1);
    EXPECT_EQ(same.FieldInteger("ID"), id);
    all.MoveFirst();
    all.Find(QStringLiteral("NodeName=") + Quoted(name));
    ASSERT_FALSE(all.IsEof());
    EXPECT_EQ(all.FieldInteger("ID"), id);
  }
}

TEST_P(NamesTest, AreWrittenByStatementsExactly) {
  Add(QStringList(Names().size(), QStringLiteral("新加词")));
  qint32 id = 0;
  for (const QString& name : Names()) {
    SCOPED_TRACE(name.toStdString());
    connection_.Execute(QStringLiteral("update Items set  NodeName=%1 where SortID=1 And ID=%2")
                            .arg(Quoted(name), QString::number(++id)));
  }
  EXPECT_EQ(Words(), Numbered(Names()));
}

// Around the size of a reading block, a text that is cut must come back whole.
TEST_P(NamesTest, OfAnyLengthComeBackWhole) {
  QStringList names = {QStringLiteral("短")};
  for (int units = 508; units <= 514; ++units) {
    names += QString(units, u'长');
    names += QString(units - 1, u'长') + QStringLiteral("𠮷");
    names += QString(units - 1, u'a') + QStringLiteral("𠮷尾");
  }
  // The edges of the pieces in which a longer one is read.
  for (int units : {3998, 1999}) names += QStringLiteral("𠮷").repeated(units) + u'尾';
  names += QString(4000, u'é');
  Add(names);
  EXPECT_EQ(Words(), Numbered(names));
}

TEST_P(NamesTest, LongerThanTheirColumnAreNeverStoredInPart) {
  const QString text = QStringLiteral("𠮷x词").repeated(2500) + QStringLiteral("𠮷尾");
  try {
    Add({text});
    EXPECT_EQ(Words(), Numbered({text}));
  } catch (const std::exception&) {
    EXPECT_TRUE(Words().empty());
  }
}

INSTANTIATE_ON_ENGINES(NamesTest);

}  // namespace
