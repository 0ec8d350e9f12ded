// A list control's rows as a Qt model, for the view that draws them and for screen readers.
#pragma once

#include "view/Control.h"

#include <QAbstractListModel>

namespace velluto {

class ListModel : public QAbstractListModel {
public:
    ListModel(const ListBox &list, QObject *parent) : QAbstractListModel(parent), list_(&list), rows_(list.ListCount()) {}

    // The rows have changed: tells it row by row where their number stays, as a whole where it does not.
    void Refresh();
    // The control is about to go; the model is empty from then on.
    void Detach();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    // The text of a row as it is drawn; row is 0-based.
    [[nodiscard]] QString Text(int row) const;
    [[nodiscard]] bool IsHeading(int row) const;

private:
    const ListBox *list_;
    int rows_;
};

} // namespace velluto
