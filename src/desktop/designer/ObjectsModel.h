#pragma once

#include "card/CardObject.h"
#include <QAbstractTableModel>
#include <utility>
#include <vector>

namespace vantrel {

class Session;

/// The columns of the list of objects.
enum class ObjectColumn { Kind, Text, Field, Left, Top, Width, Height };
inline constexpr int ObjectColumnCount = 7;

/// The objects of the page as rows of a table, the topmost first. Each is looked up by its family
/// and index when its row is looked at, since a record may have replaced it.
class ObjectsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ObjectsModel(Session& session, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Follows the page. The rows are made anew only if other objects are on it, or in another
    /// order.
    void Follow();
    /// The object of a row; null where there is none, or where it has gone.
    CardObject* ObjectAt(int row) const;
    /// The row of an object; -1 for none.
    int RowOf(const CardObject& object) const;

private:
    using Key = std::pair<Family, int>;

    QString TextOf(const CardObject& object, ObjectColumn column) const;

    Session& m_session;
    std::vector<Key> m_rows;
};

} // namespace vantrel
