#include "qor/xml/DOMHelper.h"

#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <memory>
#include <sstream>

namespace {

const xmlChar *Chars(const std::string &text) { return reinterpret_cast<const xmlChar *>(text.c_str()); }

// libxml2 reports a malformed query to a global handler, which prints;
// here it is only a false. (The handler's error parameter changed its
// constness across libxml2 versions; the template fits either.)
template <class Error>
void IgnoreError(void *, Error) {}

// The nodes a query selects, in document order; none when the query is
// malformed or yields something other than a set of nodes.
class Selection {
public:
    Selection(xmlDocPtr document, const std::string &query) {
        if (!document) return;
        context_.reset(xmlXPathNewContext(document));
        if (!context_) return;
        context_->node = reinterpret_cast<xmlNodePtr>(document);
        context_->error = &IgnoreError;
        result_.reset(xmlXPathEval(Chars(query), context_.get()));
    }

    std::size_t size() const {
        if (!result_ || result_->type != XPATH_NODESET || !result_->nodesetval) return 0;
        return static_cast<std::size_t>(xmlXPathNodeSetGetLength(result_->nodesetval));
    }
    xmlNodePtr operator[](std::size_t index) const {
        return xmlXPathNodeSetItem(result_->nodesetval, static_cast<int>(index));
    }

private:
    struct FreeContext {
        void operator()(xmlXPathContextPtr context) const { xmlXPathFreeContext(context); }
    };
    struct FreeObject {
        void operator()(xmlXPathObjectPtr object) const { xmlXPathFreeObject(object); }
    };
    std::unique_ptr<xmlXPathContext, FreeContext> context_;
    std::unique_ptr<xmlXPathObject, FreeObject> result_;
};

std::string TextOf(xmlNodePtr node) {
    xmlChar *content = xmlNodeGetContent(node);
    std::string text = content ? reinterpret_cast<const char *>(content) : "";
    xmlFree(content);
    return text;
}

// The attribute of that qualified name ("name" or "prefix:name"); false for
// a node that isn't an element, or one without the attribute.
bool AttributeOf(xmlNodePtr node, const std::string &name, std::string &value) {
    if (!node || node->type != XML_ELEMENT_NODE) return false;
    for (xmlAttrPtr attribute = node->properties; attribute; attribute = attribute->next) {
        std::string qualified;
        if (attribute->ns && attribute->ns->prefix) {
            qualified = reinterpret_cast<const char *>(attribute->ns->prefix);
            qualified += ':';
        }
        qualified += reinterpret_cast<const char *>(attribute->name);
        if (qualified == name) {
            value = TextOf(reinterpret_cast<xmlNodePtr>(attribute));
            return true;
        }
    }
    return false;
}

}  // namespace

CDOMHelper::CDOMHelper(xmlDocPtr &document) : document_(document) { xmlInitParser(); }

xmlDocPtr &CDOMHelper::GetDOMDoc() { return document_; }

bool CDOMHelper::AddTopLevelTextElement(const std::string &name, const std::string &text) {
    xmlNodePtr root = document_ ? xmlDocGetRootElement(document_) : nullptr;
    if (!root || xmlValidateName(Chars(name), 0) != 0) return false;
    xmlNodePtr element = xmlNewDocNode(document_, nullptr, Chars(name), nullptr);
    if (!element) return false;
    if (!text.empty()) {
        // A text node holds its text as it stands; it is escaped when written.
        xmlNodePtr content = xmlNewDocTextLen(document_, Chars(text), static_cast<int>(text.size()));
        if (!content || !xmlAddChild(element, content)) {
            xmlFreeNode(content);
            xmlFreeNode(element);
            return false;
        }
    }
    if (!xmlAddChild(root, element)) {
        xmlFreeNode(element);
        return false;
    }
    return true;
}

bool CDOMHelper::AddTopLevelTextElement(const std::string &name, long long value) {
    std::ostringstream text;
    text << value;
    return AddTopLevelTextElement(name, text.str());
}

bool CDOMHelper::FindAttribute(const std::string &query, const std::string &attribute, std::string &value) const {
    const Selection nodes(document_, query);
    return nodes.size() > 0 && AttributeOf(nodes[0], attribute, value);
}

bool CDOMHelper::FindAttribute(const std::string &query, const std::string &attribute,
                               std::vector<std::string> &values) const {
    const Selection nodes(document_, query);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        std::string value;
        if (!AttributeOf(nodes[i], attribute, value)) return false;
        values.push_back(std::move(value));
    }
    return nodes.size() > 0;
}

bool CDOMHelper::FindTextA(const std::string &query, std::string &text) const {
    const Selection nodes(document_, query);
    if (nodes.size() == 0) return false;
    text = TextOf(nodes[0]);
    return true;
}

bool CDOMHelper::FindTextA(const std::string &query, std::vector<std::string> &texts) const {
    const Selection nodes(document_, query);
    for (std::size_t i = 0; i < nodes.size(); ++i) texts.push_back(TextOf(nodes[i]));
    return nodes.size() > 0;
}

bool CDOMHelper::FindTextA(const std::string &query, long long &value) const {
    std::string text;
    if (!FindTextA(query, text)) return false;
    std::istringstream in(text);
    long long read = 0;
    in >> read;  // 0 when nothing reads, the nearest limit when out of range
    value = read;
    return true;
}
