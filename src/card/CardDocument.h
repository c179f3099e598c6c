#pragma once

#include "card/CardObject.h"
#include "card/DragState.h"
#include <QObject>
#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// The card: the objects of the one page that is in memory. There is no other document structure;
/// printing, field application and the designer all work on these objects. The document window
/// shows it, and nothing here knows the window.
class CardDocument : public QObject
{
    Q_OBJECT

public:
    CardDocument();
    ~CardDocument() override;

    /// Whether the form exists; it is made at its first use (`EnsureDocument`).
    bool IsLoaded() const { return m_loaded; }
    /// Makes the form: the hidden template of each family and the grips, nothing selected.
    void Load();
    /// Frees every object and forgets what the form held.
    void Unload();

    /// All objects, templates and grips among them, in creation order, which is the stacking order.
    const std::vector<std::unique_ptr<CardObject>>& Objects() const { return m_objects; }
    /// Highest index in use in a family; 0 where only the template is there.
    int HighestIndex(Family family) const;
    /// The element, or none where the index is a gap or out of range.
    CardObject* Find(Family family, int index) const;
    /// A new element on top of the others, indexed one above the family's highest.
    CardObject& Add(Family family);
    void Remove(CardObject& object);
    /// Unloads every object that is card content, and resets the selection.
    void RemoveContent();

    bool IsShown() const { return m_shown; }
    void Show();
    void Hide();
    /// Asks whoever shows the document to paint it anew.
    void Refresh();

    /// Of the form itself: place and size in twips. The size stands for the card.
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    /// Path of the page's back image; the print takes it from here.
    QString Tag;
    /// When set, every text object made gets this font.
    std::optional<Font> DefaultFont;
    /// Largest height and width given to a camera object so far, in twips.
    std::int16_t CamHeight = 0;
    std::int16_t CamWidth = 0;
    /// The designer's selection.
    CardObject* SelectedObject = nullptr;
    int SelectedIndex = 0;
    QString SelectedFamily;
    /// True after a load, false after any press on an object. Nothing reads it.
    bool LayoutUnchanged = false;
    bool HandlesShown = false;
    DragState Drag;

Q_SIGNALS:
    void Shown();
    void Hidden();
    void Changed();

private:
    /// The elements of one family by index; none where the index is a gap.
    using Members = std::vector<CardObject*>;

    Members& MembersOf(Family family) { return m_members[static_cast<std::size_t>(family)]; }
    const Members& MembersOf(Family family) const
    {
        return m_members[static_cast<std::size_t>(family)];
    }
    static void MarkNotIncluded(CardObject& object);
    /// Takes an object that is about to go out of its family and of the selection.
    void Forget(const CardObject& object);

    bool m_loaded = false;
    bool m_shown = false;
    std::vector<std::unique_ptr<CardObject>> m_objects;
    std::array<Members, FamilyCount> m_members;
};

} // namespace vantrel
