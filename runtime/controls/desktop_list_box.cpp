#include "runtime/desktop_list_box.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>

#include "runtime/desktop_application.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {

class DesktopListBox::Model : public QAbstractTableModel {
 public:
  explicit Model(const ListBoxCells& cells) : cells_(cells) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : cells_.RowCount();
  }

  int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : cells_.ColumnCount();
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return ToQString(cells_.CellTextAt(index.row(), index.column()));
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    // The hidden heading of a row, which assistive tools read, is its first cell.
    return ToQString(orientation == Qt::Horizontal ? cells_.HeaderAt(section)
                                                   : cells_.CellTextAt(section, 0));
  }

  void Changed(int row, int column) {
    const QModelIndex cell = index(row, column);
    emit dataChanged(cell, cell);
  }

 private:
  const ListBoxCells& cells_;
};

namespace {

class NativeList : public QTableView {
 public:
  explicit NativeList(const DesktopListBox& owner) : owner_(owner) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
      case Qt::Key_Space:
        DesktopApplication::Current().Raise(owner_.DoublePressed);
        break;
      default:
        QTableView::keyPressEvent(event);
    }
  }

 private:
  const DesktopListBox& owner_;
};

}  // namespace

DesktopListBox::DesktopListBox(DesktopWindow& window, const ControlLayout& layout,
                               ListBoxCells& cells)
    : DesktopUIControl(window, std::make_unique<NativeList>(*this), layout),
      cells_(cells),
      model_(std::make_unique<Model>(cells)) {
  auto& list = Native<QTableView>();
  list.setModel(model_.get());
  list.horizontalHeader()->setFont(list.font());
  list.verticalHeader()->setDefaultSectionSize(list.fontMetrics().height() + 2);
  QObject::connect(&list, &QTableView::doubleClicked,
                   [this] { DesktopApplication::Current().Raise(DoublePressed); });
}

DesktopListBox::~DesktopListBox() { Native<QTableView>().setModel(nullptr); }

void DesktopListBox::CellTextAt(int row, int column, std::string_view text) {
  cells_.CellTextAt(row, column, text);
  model_->Changed(row, column);
}

int DesktopListBox::SelectedRowIndex() const {
  const QModelIndexList rows = Native<QTableView>().selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

void DesktopListBox::SelectedRowIndex(int row) {
  if (row < 0) {
    Native<QTableView>().selectionModel()->clear();
  } else {
    Native<QTableView>().selectRow(row);
  }
}

}  // namespace peakwright
