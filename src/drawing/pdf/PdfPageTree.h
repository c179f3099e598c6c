#pragma once

#include <QByteArray>
#include <vector>

namespace vantrel {

class PdfFile;

/// The tree of a document's pages, written while pages are added: each node has at most 64
/// children, and all pages are at the same depth. Only the nodes above the newest page are in
/// memory.
class PdfPageTree
{
public:
    explicit PdfPageTree(PdfFile& file) : m_file(file) {}

    /// The node above the next page. A page must then be added before the next call.
    int ParentOfNext();
    /// Adds a page whose object names `ParentOfNext` as its parent.
    void Add(int page);
    int PageCount() const { return m_pageCount; }
    /// Writes the nodes that are still open. There must be a page.
    /// @return the number of the root
    int Finish();

private:
    /// The open node of one level; level 0 is above the pages.
    struct Node
    {
        int Object = 0;
        QByteArray Kids;
        int KidCount = 0;
        int PageCount = 0;
    };

    Node& Open(std::size_t level);
    /// Writes the node of a level below its parent, and opens another one when it is needed.
    void Close(std::size_t level);
    void Write(const Node& node, int parent);

    PdfFile& m_file;
    std::vector<Node> m_levels;
    int m_pageCount = 0;
};

} // namespace vantrel
