// Reading and writing documents of the dialect against pugixml and tinyxml2
// on the same bytes: about 1 KB, 100 KB, 1 MB and 10 MB of nested records with many
// attributes, text and comments. Prints each peer ratio, the growth from
// 1 MB to 10 MB, and what the element types cost without any parsing.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <malloc.h>
#include <map>
#include <random>
#include <string>

#include <pugixml.hpp>
#include <tinyxml2.h>

#include "qor/xml.h"
#include "support/BenchTimes.h"

namespace {

// A document as the scheduler's metadata files look: a protocol of steps,
// each a record with a dozen attributes, parameters below it, now and then
// a note as text or a comment.
std::string MakeDocument(std::size_t targetBytes) {
    std::mt19937 random(42);
    auto pick = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
    const char *const devices[] = {"Pipettor", "Plate Handler", "Reader", "Washer", "Incubator"};
    const char *const liquids[] = {"Buffer &lt;A&gt;", "Sample", "DMSO", "Water", "Cells &amp; media"};
    std::string out = "<?xml version='1.0' encoding='ASCII' ?>\n"
                      "<Brindlemar file='MetaData' md5sum='00000000000000000000000000000000' "
                      "version='1.0' >\n";
    int step = 0;
    while (out.size() < targetBytes) {
        ++step;
        out += "\t<Step Command='Aspirate' Device='" + std::string(devices[pick(5)]) +
               "' Index='" + std::to_string(step) + "' Location='Deck " + std::to_string(pick(12)) +
               "' Plate='P-" + std::to_string(10000 + step) + "' Retries='" + std::to_string(pick(4)) +
               "' Timeout='" + std::to_string(30 + pick(600)) + "' Volume='" +
               std::to_string(pick(20000) / 100.0) + "' >\n";
        if (step % 5 == 0) out += "\t\t<!-- checkpoint " + std::to_string(step) + " -->\n";
        int wells = 2 + pick(5);
        for (int w = 0; w < wells; ++w) {
            out += "\t\t<Well Column='" + std::to_string(pick(24)) + "' Liquid='" +
                   liquids[pick(5)] + "' Row='" + std::to_string(pick(16)) + "' Volume='" +
                   std::to_string(pick(5000) / 10.0) + "' />\n";
        }
        out += "\t\t<Technique Name='Default " + std::to_string(pick(9)) +
               "' >Aspirate slowly, then mix " + std::to_string(1 + pick(5)) +
               " times &amp; touch off</Technique>\n";
        out += "\t</Step>\n";
    }
    out += "</Brindlemar>";
    return out;
}

const std::string &Document(std::int64_t kilobytes) {
    static std::map<std::int64_t, std::string> cache;
    auto found = cache.find(kilobytes);
    if (found == cache.end())
        found = cache.emplace(kilobytes, MakeDocument(static_cast<std::size_t>(kilobytes) * 1024)).first;
    return found->second;
}

// Each contender starts from a heap with nothing free in it. glibc keeps the
// memory the previous contender freed, in bins shaped by that contender's
// objects, and whether a large block then comes from those bins or from
// fresh, page-faulting memory depends on them: in one run a peer's parse took
// half the time or twice as long depending on who ran before it.
void FreshHeap() { malloc_trim(0); }

void SetBytes(benchmark::State &state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

void QorRead(benchmark::State &state) {
    const std::string &text = Document(state.range(0));
    FreshHeap();
    for (auto _ : state) {
        XMLReader reader;
        reader.ReadFromBuffer(text, false);
        benchmark::DoNotOptimize(reader.children.size());
    }
    SetBytes(state, text.size());
}

void PugiRead(benchmark::State &state) {
    const std::string &text = Document(state.range(0));
    FreshHeap();
    for (auto _ : state) {
        pugi::xml_document document;
        auto result = document.load_buffer(text.data(), text.size());
        if (!result) state.SkipWithError("pugixml refused the document");
        benchmark::DoNotOptimize(document.first_child());
    }
    SetBytes(state, text.size());
}

void TinyRead(benchmark::State &state) {
    const std::string &text = Document(state.range(0));
    FreshHeap();
    for (auto _ : state) {
        tinyxml2::XMLDocument document;
        if (document.Parse(text.data(), text.size()) != tinyxml2::XML_SUCCESS)
            state.SkipWithError("tinyxml2 refused the document");
        benchmark::DoNotOptimize(document.FirstChild());
    }
    SetBytes(state, text.size());
}

// What the element types cost by themselves: a copy of a parsed tree builds
// the same list nodes, map nodes and strings that parsing builds, and frees
// them, with no text to read. A parser that fills these types does this and
// reads the text besides. (At 10 MB the copy also reads a source tree that
// no longer fits in the cache, so there it overstates the cost a little.)
void QorCopyTree(benchmark::State &state) {
    const std::string &text = Document(state.range(0));
    XMLReader parsed;
    parsed.ReadFromBuffer(text, false);
    FreshHeap();
    for (auto _ : state) {
        qor::XMLNodeData copy(parsed);
        benchmark::DoNotOptimize(copy.children.size());
    }
    SetBytes(state, text.size());
}

// A writer holding the document's tree, as a record writer would have filled it.
XMLWriter TreeOf(const std::string &text) {
    XMLReader reader;
    reader.ReadFromBuffer(text, false);
    XMLWriter writer("MetaData", "1.0", true);
    static_cast<qor::XMLNodeData &>(writer) = reader;
    return writer;
}

void QorWrite(benchmark::State &state) {
    const std::string &text = Document(state.range(0));
    FreshHeap();
    const XMLWriter prototype = TreeOf(text);
    std::string out;
    for (auto _ : state) {
        // A writer's tree is written once (the sum's pass escapes in place).
        state.PauseTiming();
        XMLWriter writer = prototype;
        state.ResumeTiming();
        writer.WriteToBuffer(out);
        benchmark::DoNotOptimize(out.data());
        state.PauseTiming();
        { XMLWriter gone = std::move(writer); }
        state.ResumeTiming();
    }
    SetBytes(state, out.size());
}

struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void *data, std::size_t size) override {
        text.append(static_cast<const char *>(data), size);
    }
};

void PugiWrite(benchmark::State &state) {
    const std::string &text = Document(state.range(0));
    FreshHeap();
    pugi::xml_document document;
    document.load_buffer(text.data(), text.size());
    std::size_t bytes = 0;
    for (auto _ : state) {
        StringWriter writer;
        document.save(writer, "\t");
        bytes = writer.text.size();
        benchmark::DoNotOptimize(writer.text.data());
    }
    SetBytes(state, bytes);
}

void TinyWrite(benchmark::State &state) {
    const std::string &text = Document(state.range(0));
    FreshHeap();
    tinyxml2::XMLDocument document;
    document.Parse(text.data(), text.size());
    std::size_t bytes = 0;
    for (auto _ : state) {
        tinyxml2::XMLPrinter printer;
        document.Print(&printer);
        bytes = static_cast<std::size_t>(printer.CStrSize());
        benchmark::DoNotOptimize(printer.CStr());
    }
    SetBytes(state, bytes);
}

// About one record (what ToXMLString makes), then the three document sizes.
const std::int64_t kSizes[] = {1, 100, 1024, 10240};

struct Contender {
    const char *name;
    void (*run)(benchmark::State &);
};
const Contender kContenders[] = {
    {"qor/ReadFromBuffer", QorRead}, {"pugixml/parse", PugiRead}, {"tinyxml2/parse", TinyRead},
    {"qor/CopyTree", QorCopyTree},
    {"qor/WriteToBuffer", QorWrite}, {"pugixml/print", PugiWrite}, {"tinyxml2/print", TinyWrite},
};

}  // namespace

int main(int argc, char **argv) {
    for (std::int64_t size : kSizes) {
        for (const Contender &contender : kContenders) {
            benchmark::RegisterBenchmark(contender.name, contender.run)
                ->Arg(size)
                ->Unit(benchmark::kMillisecond)
                ->MinTime(size >= 10240 ? 1.0 : 0.3)
                ->Repetitions(3)
                ->ComputeStatistics("min",
                                    [](const std::vector<double> &v) {
                                        return *std::min_element(v.begin(), v.end());
                                    })
                ->DisplayAggregatesOnly(true);
        }
    }
    bench::BestTimes times;
    bench::RunAll(argc, argv, times);

    auto t = [&](const char *name, std::int64_t size) { return times.Cpu(name + ("/" + std::to_string(size))); };
    auto ratio = bench::BestTimes::Ratio;
    std::printf("\nSpeed relative to the peers (above 1: qor is faster)\n");
    for (std::int64_t size : kSizes) {
        std::printf("  %5lld KB  parse: %.2f x tinyxml2 (goal >= 1), %.2f x pugixml (goal >= 0.3)"
                    "   write with sum: %.2f x tinyxml2, %.2f x pugixml\n",
                    static_cast<long long>(size),
                    ratio(t("tinyxml2/parse", size), t("qor/ReadFromBuffer", size)),
                    ratio(t("pugixml/parse", size), t("qor/ReadFromBuffer", size)),
                    ratio(t("tinyxml2/print", size), t("qor/WriteToBuffer", size)),
                    ratio(t("pugixml/print", size), t("qor/WriteToBuffer", size)));
    }
    std::printf("The element types' own cost (copying a parsed tree, no text read)\n");
    for (std::int64_t size : kSizes) {
        std::printf("  %5lld KB  %.2f of qor's parse time, %.2f x pugixml's parse time\n",
                    static_cast<long long>(size),
                    ratio(t("qor/CopyTree", size), t("qor/ReadFromBuffer", size)),
                    ratio(t("qor/CopyTree", size), t("pugixml/parse", size)));
    }
    auto growth = [&](const char *name) { return ratio(t(name, 10240), t(name, 1024)); };
    std::printf("Growth from 1 MB to 10 MB (goal <= 12): read %.2f, write %.2f"
                "   (pugixml %.2f / %.2f, tinyxml2 %.2f / %.2f)\n",
                growth("qor/ReadFromBuffer"), growth("qor/WriteToBuffer"),
                growth("pugixml/parse"), growth("pugixml/print"), growth("tinyxml2/parse"),
                growth("tinyxml2/print"));
    return 0;
}
