#include "desktop/designer/ObjectsModel.h"
#include "base/LengthUnit.h"
#include "card/ObjectNames.h"
#include "desktop/controls/DesktopControls.h"
#include "station/session/Session.h"
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr std::array<const char*, ObjectColumnCount> Headings{
    "Object", "Text or picture", "Field", "Left", "Top", "Width", "Height"};

bool IsLength(ObjectColumn column)
{
    return column >= ObjectColumn::Left;
}

double LengthOf(const CardObject& object, ObjectColumn column)
{
    switch (column) {
    case ObjectColumn::Left:
        return static_cast<double>(object.Left);
    case ObjectColumn::Top:
        return static_cast<double>(object.Top);
    case ObjectColumn::Width:
        return static_cast<double>(object.Width);
    default:
        return static_cast<double>(object.Height);
    }
}

} // namespace

ObjectsModel::ObjectsModel(Session& session, QObject* parent)
    : QAbstractTableModel(parent), m_session(session)
{
    Follow();
}

int ObjectsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ObjectsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ObjectColumnCount;
}

QString ObjectsModel::TextOf(const CardObject& object, ObjectColumn column) const
{
    switch (column) {
    case ObjectColumn::Kind:
        return ObjectKind(object);
    case ObjectColumn::Text:
        return ShownLine(ObjectText(object).simplified());
    case ObjectColumn::Field:
        return object.Family() == Family::lbl_DATA ? object.DataField : QString();
    default:
        return LengthText(LengthOf(object, column), m_session.Options.Unit);
    }
}

QVariant ObjectsModel::data(const QModelIndex& index, int role) const
{
    const CardObject* object = ObjectAt(index.row());
    if (object == nullptr)
        return {};
    const auto column = static_cast<ObjectColumn>(index.column());
    if (role == Qt::DisplayRole)
        return TextOf(*object, column);
    if (role == Qt::AccessibleTextRole && IsLength(column)) {
        const QString heading = QLatin1StringView(Headings[static_cast<std::size_t>(column)]);
        return QString(heading + u' ' +
                       LengthWithUnit(LengthOf(*object, column), m_session.Options.Unit));
    }
    if (role == Qt::TextAlignmentRole && column >= ObjectColumn::Field)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant ObjectsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ObjectColumnCount)
        return {};
    const auto column = static_cast<ObjectColumn>(section);
    const QString heading = QLatin1StringView(Headings[static_cast<std::size_t>(section)]);
    if (role == Qt::DisplayRole)
        return IsLength(column) ? QString(heading + u' ' + UnitName(m_session.Options.Unit))
                                : heading;
    if (role == Qt::TextAlignmentRole && column >= ObjectColumn::Field)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

void ObjectsModel::Follow()
{
    std::vector<Key> rows;
    const auto& objects = m_session.Document.Objects();
    std::for_each(objects.rbegin(), objects.rend(), [&](const auto& object) {
        if (object->IsContent() && object->Index() > 0)
            rows.emplace_back(object->Family(), object->Index());
    });
    if (rows != m_rows) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    } else if (!m_rows.empty()) {
        Q_EMIT dataChanged(index(0, 0),
                           index(static_cast<int>(m_rows.size()) - 1, ObjectColumnCount - 1));
    }
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ObjectColumnCount - 1);
}

CardObject* ObjectsModel::ObjectAt(int row) const
{
    if (row < 0 || row >= rowCount())
        return nullptr;
    const auto& [family, index] = m_rows[static_cast<std::size_t>(row)];
    return m_session.Document.Find(family, index);
}

int ObjectsModel::RowOf(const CardObject& object) const
{
    const auto found = std::ranges::find(m_rows, Key(object.Family(), object.Index()));
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

} // namespace vantrel
