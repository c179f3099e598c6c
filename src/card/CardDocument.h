#pragma once

#include "card/CardObject.h"
#include "card/DragState.h"
#include <QObject>
#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// The objects of the card page in memory. There is no other document structure; printing, filling
/// fields and the designer all work on these objects. The document window observes it through the
/// signals.
class CardDocument : public QObject
{
    Q_OBJECT

public:
    CardDocument();
    ~CardDocument() override;

    /// Whether the form exists; `EnsureDocument` creates it at its first use.
    bool IsLoaded() const { return m_loaded; }
    /// Creates the hidden template of each family and the grips, with nothing selected.
    void Load();
    /// Deletes all objects and resets the form.
    void Unload();

    /// All objects including templates and grips, in creation order, which is the stacking order.
    const std::vector<std::unique_ptr<CardObject>>& Objects() const { return m_objects; }
    /// Highest index in use in a family; 0 if there is only the template.
    int HighestIndex(Family family) const;
    /// The object, or null if the index is unused or out of range.
    CardObject* Find(Family family, int index) const;
    /// Adds an object on top of the others, with the index one above the family's highest.
    CardObject& Add(Family family);
    /// Deletes an object and clears the selection if it was selected.
    void Remove(CardObject& object);
    /// Deletes all objects that are card content, and clears the selection.
    void RemoveContent();
    /// Takes all objects that are card content away, in stacking order, and clears the selection.
    std::vector<std::unique_ptr<CardObject>> TakeContent();
    /// Adds objects on top of the others in their order. Each must have an index from 1 on that its
    /// family does not use.
    void PutContent(std::vector<std::unique_ptr<CardObject>> content);

    /// Whether the document window is to be shown; `Show` and `Hide` change it.
    bool IsShown() const { return m_shown; }
    void Show();
    void Hide();
    /// Requests a repaint (`Changed`).
    void Refresh();

    /// Position and size of the form in twips. The size is that of the card.
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    /// Path of the page's back image, used when the page is printed.
    QString Tag;
    /// If set, the font of every new text object.
    std::optional<Font> DefaultFont;
    /// Largest height and width of any camera object so far, in twips.
    std::int16_t CamHeight = 0;
    std::int16_t CamWidth = 0;
    /// The designer's selection.
    CardObject* SelectedObject = nullptr;
    /// Objects that are selected together with `SelectedObject`, without it. They count only while
    /// there is one.
    std::vector<CardObject*> AlsoSelected;
    int SelectedIndex = 0;
    QString SelectedFamily;
    /// How often the values of a record were filled into the fields.
    std::uint64_t Pours = 0;
    /// True after a load, false after a press on an object. Nothing reads it.
    bool LayoutUnchanged = false;
    bool HandlesShown = false;
    DragState Drag;

Q_SIGNALS:
    /// The document is to be shown or hidden, or its contents have changed.
    void Shown();
    void Hidden();
    void Changed();

private:
    /// The objects of one family by index; null for an unused index.
    using Members = std::vector<CardObject*>;

    Members& MembersOf(Family family) { return m_members[static_cast<std::size_t>(family)]; }
    const Members& MembersOf(Family family) const
    {
        return m_members[static_cast<std::size_t>(family)];
    }
    static void MarkNotIncluded(CardObject& object);
    /// Removes an object that is about to be deleted from its family and from the selection.
    void Forget(const CardObject& object);

    bool m_loaded = false;
    bool m_shown = false;
    std::vector<std::unique_ptr<CardObject>> m_objects;
    std::array<Members, FamilyCount> m_members;
};

} // namespace vantrel
