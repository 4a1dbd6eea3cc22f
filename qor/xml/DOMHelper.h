// A thin convenience over a libxml2 document, for code that holds such a
// document instead of the dialect's own XMLParser tree: text and attributes
// found by XPath 1.0 queries, and simple elements added under the document
// element. It knows nothing of the dialect. Target Qor::dom.
#pragma once

#include <libxml/tree.h>

#include <string>
#include <vector>

// Holds a reference to the caller's document pointer; the caller owns the
// document, keeps it alive and frees it. Every operation reports by its bool
// alone and throws nothing: false for a null document, a malformed query, a
// query whose result isn't a set of nodes, or nothing found.
//
// Queries are evaluated from the document node. A node's text is its text
// content: the text of the node and all its descendants, joined, as written
// (no white space is trimmed). The list forms append to what the vector
// holds; they return false when no node matches, and stop with false at the
// first node they can't read (a node that isn't an element, or lacks the
// attribute), keeping what they appended before it.
class CDOMHelper {
public:
    explicit CDOMHelper(xmlDocPtr &document);

    xmlDocPtr &GetDOMDoc();

    // Appends <name>text</name> to the document element. False for a name
    // that isn't an XML name, or a document without a document element.
    bool AddTopLevelTextElement(const std::string &name, const std::string &text);
    // The same with the value's decimal text.
    bool AddTopLevelTextElement(const std::string &name, long long value);

    // The attribute of the first node the query selects.
    bool FindAttribute(const std::string &query, const std::string &attribute, std::string &value) const;
    // The attribute of every node the query selects, in document order.
    bool FindAttribute(const std::string &query, const std::string &attribute,
                       std::vector<std::string> &values) const;

    // The text of the first node the query selects.
    bool FindTextA(const std::string &query, std::string &text) const;
    // The text of every node the query selects, in document order.
    bool FindTextA(const std::string &query, std::vector<std::string> &texts) const;
    // The text of the first node, read as a text stream reads a 64-bit
    // integer: leading blanks skipped, digits up to the first that doesn't
    // fit; 0 for text that doesn't start with a number, the nearest limit
    // for one out of range. True whenever the node is found.
    bool FindTextA(const std::string &query, long long &value) const;

private:
    xmlDocPtr &document_;
};
