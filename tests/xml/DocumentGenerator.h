// Random documents in the dialect's shape, and mutations of them that break
// it in the ways hand-edited and truncated files do.
#pragma once

#include <random>
#include <string>

namespace xmltest {

class DocumentGenerator {
public:
    explicit DocumentGenerator(unsigned seed) : random_(seed) {}

    // A well-formed document (header, root, nested elements, attributes in
    // both quote styles, entities, text, comments, a doctype now and then).
    std::string Document();

    // `document` with a few random edits: tokens of the dialect inserted,
    // ranges deleted or doubled, the end cut off.
    std::string Mutate(std::string document);

    std::mt19937 &Random() { return random_; }

private:
    int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }
    std::string Name();
    std::string Text();
    void Element(std::string &out, int depth);

    std::mt19937 random_;
};

}  // namespace xmltest
