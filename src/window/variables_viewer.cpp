#include "window/variables_viewer.h"

#include <QFontDatabase>
#include <QVBoxLayout>

#include "base/texts/lists_texts.h"
#include "compiler/variable_table.h"
#include "shell/window_settings.h"
#include "window/text_edge.h"

namespace korvane::window {
namespace {

// The platform's own fixed-pitch font: a family asked for by name (Courier
// New) resolves to a proportional one on machines without it, and the columns
// of the list no longer line up.
QFont fixedFont() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

}  // namespace

VariablesViewer::VariablesViewer(const WindowSession& session, QWidget* parent)
    : QWidget(parent, Qt::Window) {
  setObjectName("frmVars");
  setWindowTitle(session.text(texts::lists::kCaption));
  const int minimum = kViewerMinTwips / kTwipsPerPixel;
  setMinimumSize(minimum, minimum);
  resize(minimum * 2, minimum * 2);

  tbsLook_ = new QTabWidget(this);
  tbsLook_->setObjectName("tbsLook");
  lstVars_ = new QListWidget(tbsLook_);
  lstVars_->setObjectName("lstVars");
  lstVars_->setFont(fixedFont());
  lstVars_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  txtChai_ = new QPlainTextEdit(tbsLook_);
  txtChai_->setObjectName("txtChai");
  txtChai_->setFont(fixedFont());
  txtChai_->setReadOnly(true);
  txtChai_->setLineWrapMode(QPlainTextEdit::NoWrap);
  tbsLook_->addTab(lstVars_, session.text(texts::lists::kVariables));
  tbsLook_->setTabToolTip(0, session.text(texts::lists::kVariablesTip));
  tbsLook_->addTab(txtChai_, session.text(texts::lists::kLog));
  tbsLook_->setTabToolTip(1, session.text(texts::lists::kLogTip));

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->addWidget(tbsLook_);
}

void VariablesViewer::fill(const std::vector<std::string>& items, const std::string& logText) {
  lstVars_->clear();
  const std::size_t n = std::min(items.size(), VariableTable::kCapacity);
  for (std::size_t i = 0; i < n; ++i) lstVars_->addItem(fromCore(items[i]));
  txtChai_->setPlainText(fromCore(logText));
}

}  // namespace korvane::window
