#include "qor/xml/XMLSerializer.h"

#include <vector>

#include "qor/xml/XMLConstants.h"
#include "qor/xml/XMLEscape.h"
#include "qor/xml/XMLText.h"
#include "qor/xml/XMLTree.h"

namespace qor::xmlwrite {
namespace {

struct OpenElement {
    XMLNodeData *node;
    std::list<XMLNodeData>::iterator nextChild;
    int depth;
};

class TreeWriter {
public:
    TreeWriter(std::string &out, bool escapeAttributes, const XMLNodeData *document,
               std::size_t *sumOffset)
        : out_(out), escape_(escapeAttributes), document_(document), sumOffset_(sumOffset) {}

    void Write(XMLNodeData &top, int depth) {
        if (!Open(top, depth)) return;
        std::vector<OpenElement> open;
        open.push_back({&top, top.children.begin(), depth});
        while (!open.empty()) {
            OpenElement &current = open.back();
            if (current.nextChild == current.node->children.end()) {
                Close(*current.node, current.depth);
                open.pop_back();
                continue;
            }
            // The next sibling and the first child are the next elements
            // written, whichever comes first.
            qor::xmltree::PrefetchNext(current.nextChild, current.node->children.end());
            XMLNodeData &child = *current.nextChild++;
            if (!child.children.empty()) qor::xmltree::PrefetchElement(child.children.front());
            int childDepth = current.depth + 1;
            if (Open(child, childDepth)) open.push_back({&child, child.children.begin(), childDepth});
        }
    }

private:
    // Writes the start tag and the text; false when the element ended there.
    bool Open(XMLNodeData &node, int depth) {
        out_.append(static_cast<std::size_t>(depth), '\t');
        out_.push_back('<');
        out_.append(node.name);
        out_.push_back(' ');
        for (auto &[key, value] : node.attributes) {
            if (escape_) EscapeXML(value);
            out_.append(key);
            out_.append("='");
            if (sumOffset_ && &node == document_ && key == MD5SUM_ATTRIBUTE)
                *sumOffset_ = out_.size();
            out_.append(value);
            out_.append("' ");
        }
        if (node.children.empty() && node.text.empty()) {
            out_.append("/>");
            if (&node != document_) out_.push_back('\n');
            return false;
        }
        out_.push_back('>');
        if (node.text.empty()) {
            out_.push_back('\n');
        } else {
            std::string_view text = node.text;
            std::size_t last = text.find_last_not_of(qor::xmltext::kSpaceChars);
            if (last != std::string_view::npos) text = text.substr(0, last + 1);
            qor::xmltext::AppendEscaped(out_, text);
        }
        return true;
    }

    void Close(const XMLNodeData &node, int depth) {
        if (node.text.empty()) out_.append(static_cast<std::size_t>(depth), '\t');
        out_.append("</");
        out_.append(node.name);
        out_.push_back('>');
        if (&node != document_) out_.push_back('\n');
    }

    std::string &out_;
    bool escape_;
    const XMLNodeData *document_;
    std::size_t *sumOffset_;
};

}  // namespace

void AppendNode(std::string &out, XMLNodeData &node, bool escapeAttributes, int depth,
                const XMLNodeData *document, std::size_t *sumOffset) {
    if (sumOffset && &node == document) *sumOffset = std::string::npos;
    TreeWriter(out, escapeAttributes, document, sumOffset).Write(node, depth);
}

void AppendHeader(std::string &out) {
    out.append("<?xml ");
    out.append(VERSION_ATTRIBUTE);
    out.append("='1.0' encoding='ASCII' ?>\n");
}

}  // namespace qor::xmlwrite
