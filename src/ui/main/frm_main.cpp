// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "accessible_roles.h"
#include "band_container.h"
#include "deleted_branches.h"
#include "entry_scheme.h"
#include "event_guard.h"
#include "list_view.h"
#include "picture_button.h"
#include "status_bar.h"
#include "tool_bar.h"
#include "tree_corner.h"
#include "tree_view.h"
#include "vertical_label.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

namespace {

// The bars' containers overlap the panes by this much, which they leave empty.
constexpr float kOverlap = 60;

QCursor LoadCursor(const QString& path, int hotX, int hotY, qreal scale) {
  return QCursor(QIcon(path).pixmap(QSize(32, 32), scale), hotX, hotY);
}

}  // namespace

frmMain::frmMain() : placement_(*this), deleted_(std::make_unique<DeletedBranches>()) {
  setObjectName(QStringLiteral("frmMain"));
  InstallAccessibleRoles();
  for (const char* name : {"root", "category", "word"}) {
    imlTreeIcons.Add(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
  }
  for (int i = 1; i <= 11; ++i) {
    const QString key = i == 1   ? QStringLiteral("NewItem")
                        : i == 2 ? QStringLiteral("NewWord")
                        : i == 5 ? QStringLiteral("Delete")
                                 : QString();
    imlToolbarIcons.Add(QStringLiteral(":/toolbar/%1.svg").arg(i, 2, 10, QLatin1Char('0')), key);
  }
  client = new QWidget(this);
  setCentralWidget(client);
  client->installEventFilter(this);
  CreatePanes();
  CreateBars();
  CreateMenus();
  ConnectEvents();
}

frmMain::~frmMain() {
  // The controls go before the records that their handlers use.
  client->removeEventFilter(this);
  delete takeCentralWidget();
}

void frmMain::CreatePanes() {
  const auto named = [](auto* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
  };
  picTreeContain = named(new PictureBox(client), "picTreeContain");
  picTreeContain->setAccessibleName(QStringLiteral("树窗格"));
  tvTreeView = named(new TreeView(picTreeContain), "tvTreeView");
  tvTreeView->setAccessibleName(QStringLiteral("词句库"));

  picListContain = named(new PictureBox(client), "picListContain");
  picListContain->setAccessibleName(QStringLiteral("列表窗格"));
  picListContain->SetBackColor(kWhite);
  picListContain->SetBorder();
  lvListView = named(new ListView(picListContain), "lvListView");
  lvListView->setAccessibleName(QStringLiteral("下级内容"));
  lvListView->setFrameShape(QFrame::NoFrame);
  lvListView->SetCustomPointer(
      LoadCursor(QStringLiteral(":/cursors/hand.svg"), 12, 1, devicePixelRatioF()));
  Image1 = named(new PictureBox(picListContain), "Image1");
  Image1->setAccessibleName(QStringLiteral("词句库图标"));
  Image1->SetBackColor(kWhite);
  Image1->SetPicture(QIcon(QStringLiteral(":/icons/list-pane.svg")), QSize(32, 32));
  Label1 = named(new VerticalLabel(kAppTitle, 15.75, picListContain), "Label1");
  layout_.Image1 = {0, 0, 480, 480};
  layout_.Label1 = {0, 0, 345, 1635};

  picShowSplitter = named(new PictureBox(client), "picShowSplitter");
  picShowSplitter->setCursor(
      LoadCursor(QStringLiteral(":/cursors/splitter.svg"), 15, 15, devicePixelRatioF()));
  picShowSplitter->setAccessibleName(QStringLiteral("分隔条"));
  layout_.picShowSplitter.width = 60;
  picSplitter = named(new PictureBox(client), "picSplitter");
  picSplitter->hide();
}

void frmMain::CreateBars() {
  cbToolBar = new BandContainer(15, kOverlap + 15, client);
  cbToolBar->setObjectName(QStringLiteral("cbToolBar"));
  cbToolBar->setAccessibleName(QStringLiteral("工具栏带"));
  tbToolBar = new ToolBar;
  tbToolBar->setObjectName(QStringLiteral("tbToolBar"));
  tbToolBar->setAccessibleName(QStringLiteral("工具栏"));
  tbToolBar->SetImageList(imlToolbarIcons);
  tbToolBar->AddButton(QStringLiteral("新条目"), 1);
  tbToolBar->AddButton(QStringLiteral("新词"), 2);
  tbToolBar->AddSeparator();
  tbToolBar->AddButton(QStringLiteral("删除"), 5);
  tbToolBar->AddButton(QStringLiteral("重命名"), 6);
  cbToolBar->AddResizableBand(tbToolBar, 270);
  picForCBToolBar = new PictureButton;
  picForCBToolBar->setObjectName(QStringLiteral("picForCBToolBar"));
  picForCBToolBar->setAccessibleName(QStringLiteral("关于"));
  picForCBToolBar->SetPicture(QIcon(QStringLiteral(":/icons/band.svg")), QSize(45, 22));
  cbToolBar->AddFixedBand(picForCBToolBar, 345, 675);

  cbStatusBar = new BandContainer(kOverlap + 15, 30, client);
  cbStatusBar->setObjectName(QStringLiteral("cbStatusBar"));
  cbStatusBar->setAccessibleName(QStringLiteral("状态栏带"));
  sbStatusBar = new StatusBar;
  sbStatusBar->setObjectName(QStringLiteral("sbStatusBar"));
  sbStatusBar->setAccessibleName(QStringLiteral("状态栏"));
  cbStatusBar->AddResizableBand(sbStatusBar, 270);
  cbStatusBar->AddCaptionBand(kAppTitle, 225, 1095);

  // What the containers leave empty lies below the panes.
  cbToolBar->lower();
  cbStatusBar->lower();
}

// A command first ends an open editing, and does nothing when the name in it was refused.
QAction* frmMain::AddItem(QMenu* menu, const char* name, const QString& caption,
                          void (frmMain::*click)()) {
  QAction* item = menu->addAction(caption);
  item->setObjectName(QString::fromLatin1(name));
  item->setMenuRole(QAction::NoRole);
  connect(item, &QAction::triggered, this, Guarded([this, item, click](bool) {
            if (tvTreeView->EndLabelEdit()) {
              (this->*click)();
            } else if (item->isCheckable()) {
              item->toggle();  // which the click itself has done
            }
          }));
  return item;
}

void frmMain::CreateMenus() {
  const auto addMenu = [this](const char* name, const QString& caption) {
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
  };
  const auto addSeparator = [](QMenu* menu, const char* name) {
    QAction* separator = menu->addSeparator();
    separator->setObjectName(QString::fromLatin1(name));
    return separator;
  };
  const auto checked = [](QAction* item) {
    item->setCheckable(true);
    item->setChecked(true);
    return item;
  };

  QMenu* mnuFile = addMenu("mnuFile", QStringLiteral("文件(&F)"));
  AddItem(mnuFile, "mnuClose", QStringLiteral("关闭(&C)"), &frmMain::mnuClose_Click);

  QMenu* mnuEdit = addMenu("mnuEdit", QStringLiteral("编辑(&E)"));
  AddItem(mnuEdit, "mnuEditNewItem", QStringLiteral("新条目"), &frmMain::mnuEditNewItem_Click);
  AddItem(mnuEdit, "mnuEditNewWord", QStringLiteral("新词"), &frmMain::mnuEditNewWord_Click);
  addSeparator(mnuEdit, "mnuEditBar0");
  AddItem(mnuEdit, "mnuEditDelete", QStringLiteral("删除"), &frmMain::mnuEditDelete_Click);
  AddItem(mnuEdit, "mnuEditRename", QStringLiteral("重命名."), &frmMain::mnuEditRename_Click);

  QMenu* mnuView = addMenu("mnuView", QStringLiteral("视图(&V)"));
  mnuViewToolbar = checked(AddItem(mnuView, "mnuViewToolbar", QStringLiteral("工具栏(&T)"),
                                   &frmMain::mnuViewToolbar_Click));
  mnuViewStatusBar = checked(AddItem(mnuView, "mnuViewStatusBar", QStringLiteral("状态栏(&B)"),
                                     &frmMain::mnuViewStatusBar_Click));

  QMenu* mnuHelp = addMenu("mnuHelp", QStringLiteral("帮助(&H)"));
  AddItem(mnuHelp, "mnuHelpAbout", QStringLiteral("关于(&A) "), &frmMain::mnuHelpAbout_Click);

  // Never on the menu bar; the commands are those of the Edit menu.
  mnuPopMnu = new QMenu(QStringLiteral("弹出菜单"), this);
  mnuPopMnu->setObjectName(QStringLiteral("mnuPopMnu"));
  mnuPopMnu->setAccessibleName(mnuPopMnu->title());
  picTreeContain->addAction(mnuPopMnu->menuAction());  // the pane whose menu it is
  mnuPopNewItem =
      AddItem(mnuPopMnu, "mnuPopNewItem", QStringLiteral("新条目"), &frmMain::mnuPopNewItem_Click);
  mnuPopNewWord =
      AddItem(mnuPopMnu, "mnuPopNewWord", QStringLiteral("新词"), &frmMain::mnuPopNewWord_Click);
  mnuPopSep1 = addSeparator(mnuPopMnu, "mnuPopSep1");
  mnuPopRename =
      AddItem(mnuPopMnu, "mnuPopRename", QStringLiteral("重命名"), &frmMain::mnuPopRename_Click);
  mnuPopSep2 = addSeparator(mnuPopMnu, "mnuPopSep2");
  mnuPopDelete =
      AddItem(mnuPopMnu, "mnuPopDelete", QStringLiteral("删除"), &frmMain::mnuPopDelete_Click);
}

void frmMain::ConnectEvents() {
  connect(tvTreeView, &TreeView::NodeClick, this,
          Guarded([this](Node*) { tvTreeView_NodeClick(); }));
  connect(tvTreeView, &TreeView::MouseDown, this,
          Guarded([this](int Button, float, float) { tvTreeView_MouseDown(Button); }));
  connect(tvTreeView, &TreeView::MouseUp, this,
          Guarded([this](int Button, float, float) { tvTreeView_MouseUp(Button); }));
  connect(tvTreeView, &TreeView::BeforeLabelEdit, this,
          Guarded([this](qint16& Cancel) { tvTreeView_BeforeLabelEdit(Cancel); }));
  connect(tvTreeView, &TreeView::AfterLabelEdit, this,
          Guarded([this](qint16& Cancel, const QString& NewString) {
            tvTreeView_AfterLabelEdit(Cancel, NewString);
          }));
  connect(tvTreeView, &TreeView::GotFocus, this, Guarded([this] { tvTreeView_GotFocus(); }));
  connect(tvTreeView, &TreeView::ContextMenuKey, this,
          Guarded([this](const QPoint& position) { ShowPopMnu(position); }));
  connect(tvTreeView, &TreeView::NextLabelWanted, this, Guarded([this] { NewBeside(); }));
  connect(lvListView, &ListView::MouseMove, this,
          Guarded([this](int, float X, float Y) { lvListView_MouseMove(X, Y); }));

  connect(tbToolBar, &ToolBar::ButtonClick, this,
          Guarded([this](ToolBarButton& Button) { tbToolBar_ButtonClick(Button); }));
  connect(picForCBToolBar, &PictureBox::Click, this, Guarded([this] { picForCBToolBar_Click(); }));
  connect(cbToolBar, &BandContainer::HeightChanged, this,
          Guarded([this](float) { cbToolBar_HeightChanged(); }));
  connect(cbStatusBar, &BandContainer::HeightChanged, this,
          Guarded([this](float) { cbStatusBar_HeightChanged(); }));

  connect(picShowSplitter, &PictureBox::MouseDown, this,
          Guarded([this](int, float, float) { picShowSplitter_MouseDown(); }));
  connect(picShowSplitter, &PictureBox::MouseMove, this,
          Guarded([this](int, float X, float) { picShowSplitter_MouseMove(X); }));
  connect(picShowSplitter, &PictureBox::MouseUp, this,
          Guarded([this](int, float, float) { picShowSplitter_MouseUp(); }));
  connect(
      picTreeContain, &PictureBox::MouseMove, this,
      Guarded([this](int Button, float X, float Y) { picTreeContain_MouseMove(Button, X, Y); }));
  connect(
      picTreeContain, &PictureBox::MouseDown, this,
      Guarded([this](int Button, float X, float Y) { picTreeContain_MouseDown(Button, X, Y); }));
  connect(picTreeContain, &PictureBox::MouseUp, this,
          Guarded([this](int Button, float X, float Y) { picTreeContain_MouseUp(Button, X, Y); }));
  // Where the pointer has left the pane, the bar is plain again.
  connect(picTreeContain, &PictureBox::MouseLeave, this,
          Guarded([this] { DrawSortBar(*picTreeContain); }));

  // Wherever in the window the focus is, in an open editor too.
  auto* const reload = new QShortcut(Qt::Key_F5, this);
  reload->setAutoRepeat(false);
  connect(reload, &QShortcut::activated, this, Guarded([this] { ReloadWordLib(); }));
  // A control's own: in an editor these keys are the text's. The views themselves copy a name.
  const auto onKey = [this](QWidget* control, const QKeySequence& key, const auto& act) {
    auto* const shortcut = new QShortcut(key, control, nullptr, nullptr, Qt::WidgetShortcut);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, Guarded(act));
  };
  const QKeySequence copyBranch(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
  onKey(tvTreeView, Qt::Key_Delete, [this] { mnuEditDelete_Click(); });
  onKey(tvTreeView, Qt::CTRL | Qt::Key_Z, [this] { TakeBackDelete(); });
  onKey(tvTreeView, copyBranch, [this] { CopyBranch(tvTreeView->SelectedItem()); });
  onKey(lvListView, copyBranch, [this] { CopyListedBranch(); });
  for (const QKeySequence& paste : QKeySequence::keyBindings(QKeySequence::Paste)) {
    onKey(tvTreeView, paste, [this] { PasteList(); });
  }
  const auto onButton = [this](GlyphButton::Glyph glyph, const QString& name, const QString& keys,
                               const auto& act) {
    connect(&tvTreeView->Corner().Add(glyph, name, keys), &QToolButton::clicked, this,
            Guarded([act](bool) { act(); }));
  };
  onButton(GlyphButton::Glyph::kReload, QStringLiteral("重新读入词句库"), QStringLiteral("F5"),
           [this] { ReloadWordLib(); });
  onButton(GlyphButton::Glyph::kCopy, QStringLiteral("复制选中项和它下面的全部内容"),
           QStringLiteral("Ctrl+Shift+C"), [this] { CopyBranch(tvTreeView->SelectedItem()); });
  onButton(GlyphButton::Glyph::kPaste, QStringLiteral("把剪贴板中的各行加到选中项之下"),
           QStringLiteral("Ctrl+V"), [this] { PasteList(); });
  onButton(GlyphButton::Glyph::kTakeBack, QStringLiteral("恢复最近一次删除的内容"),
           QStringLiteral("Ctrl+Z"), [this] { TakeBackDelete(); });
}
