#include "drawing/pdf/PdfPageTree.h"
#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfSyntax.h"
#include <utility>

namespace vantrel {

namespace {
constexpr int MostKids = 64;
} // namespace

PdfPageTree::Node& PdfPageTree::Open(std::size_t level)
{
    if (level == m_levels.size())
        m_levels.emplace_back();
    if (m_levels[level].KidCount == MostKids)
        Close(level);
    Node& node = m_levels[level];
    if (node.Object == 0)
        node.Object = m_file.Reserve();
    return node;
}

void PdfPageTree::Close(std::size_t level)
{
    Node& parent = Open(level + 1);
    const Node node = std::exchange(m_levels[level], {});
    parent.Kids += PdfReference(node.Object) + ' ';
    ++parent.KidCount;
    parent.PageCount += node.PageCount;
    Write(node, parent.Object);
}

void PdfPageTree::Write(const Node& node, int parent)
{
    QByteArray body = "<</Type/Pages";
    if (parent != 0)
        body += "/Parent " + PdfReference(parent);
    m_file.Write(node.Object, body + "/Count " + QByteArray::number(node.PageCount) + "/Kids[" +
                                  node.Kids + "]>>");
}

int PdfPageTree::ParentOfNext()
{
    return Open(0).Object;
}

void PdfPageTree::Add(int page)
{
    Node& node = Open(0);
    node.Kids += PdfReference(page) + ' ';
    ++node.KidCount;
    ++node.PageCount;
    ++m_pageCount;
}

int PdfPageTree::Finish()
{
    // A level that is closed may fill the one above it, which then gets a parent, too.
    for (std::size_t level = 0; level + 1 < m_levels.size(); ++level) {
        if (m_levels[level].KidCount > 0)
            Close(level);
    }
    const Node& root = m_levels.back();
    Write(root, 0);
    return root.Object;
}

} // namespace vantrel
