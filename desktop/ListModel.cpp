#include "desktop/ListModel.h"

#include "desktop/Fonts.h"
#include "desktop/QtText.h"

#include <algorithm>

namespace velluto {

void ListModel::Refresh()
{
    const int rows = list_ != nullptr ? list_->ListCount() : 0;
    if (rows != rows_) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
    } else if (rows > 0) {
        Q_EMIT dataChanged(index(0), index(rows - 1));
    }
}

void ListModel::Detach()
{
    list_ = nullptr;
    Refresh();
}

int ListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows_;
}

QVariant ListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows_) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return Text(index.row());
    }
    if (role == Qt::AccessibleTextRole) {
        return Text(index.row()).simplified();
    }
    if (role == Qt::FontRole && IsHeading(index.row())) {
        QFont font = ToQFont(list_->font);
        font.setBold(true);
        return font;
    }
    return {};
}

bool ListModel::IsHeading(int row) const
{
    return list_ != nullptr && std::ranges::find(list_->headings, row) != list_->headings.end();
}

QString ListModel::Text(int row) const
{
    if (list_ == nullptr) {
        return {};
    }
    const std::string &bytes = list_->Row(row);
    return list_->encoding == ListBox::Encoding::Utf8 ? FromUtf8(bytes) : FromWindows1252(bytes);
}

} // namespace velluto
