#include "desktop/designer/DesktopCardAccess.h"
#include "card/CardDocument.h"
#include "card/ObjectArrange.h"
#include "card/ObjectNames.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/designer/frmDocument.h"
#include <QPointer>
#include <QWindow>

namespace vantrel {

namespace {

/// One object of the card. It is looked up each time, since a record may have replaced it.
class ObjectAccess : public QAccessibleInterface
{
public:
    ObjectAccess(frmDocument& form, ObjectKey key)
        : m_form(&form), m_family(key.first), m_index(key.second)
    {}

    ObjectKey Key() const { return {m_family, m_index}; }

    bool isValid() const override { return !m_form.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override
    {
        return m_form.isNull() ? nullptr : m_form->window()->windowHandle();
    }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_form);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override
    {
        const CardObject* const object = Find();
        if (object == nullptr)
            return {};
        if (kind == QAccessible::Description)
            return FamilyKind(m_family);
        if (kind != QAccessible::Name)
            return {};
        const QString caption = object->IsLabel() ? object->Caption().trimmed() : QString();
        return caption.isEmpty() ? FamilyKind(m_family) : ShownLine(caption);
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override
    {
        const CardObject* const object = Find();
        return object == nullptr ? QRect() : m_form->ScreenBoxOf(*object);
    }
    QAccessible::Role role() const override
    {
        const bool isPicture = m_family == Family::img_LXV || m_family == Family::img_CAM;
        return isPicture ? QAccessible::Graphic : QAccessible::StaticText;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        const CardObject* const object = Find();
        state.invalid = object == nullptr;
        state.invisible = object == nullptr || !m_form->isVisible();
        state.selectable = true;
        state.selected = object != nullptr && IsSelected(m_form->Document(), *object);
        // The keys of the design tools go to the object with the grips.
        state.focusable = !m_form.isNull() && m_form->HasTools();
        state.focused = state.focusable && object != nullptr && m_form->hasFocus() &&
                        m_form->Document().SelectedObject == object;
        state.offscreen = state.focusable && object != nullptr &&
                          !m_form->ScreenView().intersects(m_form->ScreenBoxOf(*object));
        return state;
    }

private:
    const CardObject* Find() const
    {
        return m_form.isNull() ? nullptr : m_form->ShownObject(m_family, m_index);
    }

    QPointer<frmDocument> m_form;
    Family m_family;
    int m_index;
};

} // namespace

CardAccess::CardAccess(frmDocument* form, QAccessible::Role role)
    : QAccessibleWidget(form, role), m_form(*form)
{}

CardAccess::~CardAccess()
{
    for (const auto& [object, told] : m_told)
        QAccessible::deleteAccessibleInterface(told.Id);
}

void CardAccess::List() const
{
    m_listed.clear();
    m_places.clear();
    for (const auto& object : m_form.Document().Objects()) {
        const ObjectKey key(object->Family(), object->Index());
        if (m_form.ShownObject(key.first, key.second) == nullptr)
            continue;
        m_places[key] = static_cast<int>(m_listed.size());
        m_listed.push_back(key);
    }
}

QAccessibleInterface* CardAccess::Tell(const ObjectKey& key) const
{
    Told& told = m_told[key];
    if (told.Id == 0)
        told.Id = QAccessible::registerAccessibleInterface(new ObjectAccess(m_form, key));
    return QAccessible::accessibleInterface(told.Id);
}

int CardAccess::childCount() const
{
    List();
    return static_cast<int>(m_listed.size()) + (m_form.TextField() == nullptr ? 0 : 1);
}

QAccessibleInterface* CardAccess::child(int index) const
{
    const auto holds = [&] {
        return index >= 0 && static_cast<std::size_t>(index) < m_listed.size();
    };
    const auto at = [&] { return m_listed[static_cast<std::size_t>(index)]; };
    // A caller that walks the children has asked for their number, which refreshed the list;
    // refreshing it for each child would take too long.
    if (!holds() || m_form.ShownObject(at().first, at().second) == nullptr)
        List();
    if (static_cast<std::size_t>(index) == m_listed.size() && m_form.TextField() != nullptr)
        return QAccessible::queryAccessibleInterface(m_form.TextField());
    return holds() ? Tell(at()) : nullptr;
}

int CardAccess::indexOfChild(const QAccessibleInterface* child) const
{
    if (m_form.TextField() != nullptr && child->object() == m_form.TextField()) {
        List();
        return static_cast<int>(m_listed.size());
    }
    const auto* const object = dynamic_cast<const ObjectAccess*>(child);
    if (object == nullptr)
        return -1;
    if (!m_places.contains(object->Key()))
        List();
    const auto found = m_places.find(object->Key());
    return found == m_places.end() ? -1 : found->second;
}

QAccessibleInterface* CardAccess::childAt(int x, int y) const
{
    const QPoint point = m_form.mapFromGlobal(QPoint(x, y));
    if (QWidget* const field = m_form.TextField();
        field != nullptr && field->geometry().contains(point))
        return QAccessible::queryAccessibleInterface(field);
    const CardObject* const object = m_form.ObjectAt(point);
    return object == nullptr ? nullptr : Tell({object->Family(), object->Index()});
}

void CardAccess::TellDesign(const ObjectKey& key, QAccessibleInterface& object, Told& told) const
{
    const CardObject& shown = *m_form.ShownObject(key.first, key.second);
    const QRect box = m_form.ScreenBoxOf(shown);
    const bool isSelected = object.state().selected;
    const bool isFocused = object.state().focused;
    if (told.Announced && box != told.Box) {
        QAccessibleEvent moved(&object, QAccessible::LocationChanged);
        QAccessible::updateAccessibility(&moved);
    }
    if (told.Announced && isSelected != told.Selected) {
        QAccessible::State changed;
        changed.selected = true;
        QAccessibleStateChangeEvent selection(&object, changed);
        QAccessible::updateAccessibility(&selection);
    }
    if (isFocused && !told.Focused) {
        QAccessibleEvent focus(&object, QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
    told.Box = box;
    told.Selected = isSelected;
    told.Focused = isFocused;
}

void CardAccess::Follow(bool tellsDesign)
{
    List();
    for (const ObjectKey& key : m_listed) {
        QAccessibleInterface* const object = Tell(key);
        Told& told = m_told[key];
        if (tellsDesign)
            TellDesign(key, *object, told);
        const QString name = object->text(QAccessible::Name);
        if (told.Announced && name == told.Name)
            continue;
        QAccessibleEvent event(object, told.Announced ? QAccessible::NameChanged
                                                      : QAccessible::ObjectCreated);
        told.Name = name;
        told.Announced = true;
        QAccessible::updateAccessibility(&event);
    }
    for (auto told = m_told.begin(); told != m_told.end();) {
        if (m_places.contains(told->first)) {
            ++told;
            continue;
        }
        QAccessibleEvent gone(QAccessible::accessibleInterface(told->second.Id),
                              QAccessible::ObjectDestroyed);
        QAccessible::updateAccessibility(&gone);
        QAccessible::deleteAccessibleInterface(told->second.Id);
        told = m_told.erase(told);
    }
}

} // namespace vantrel
