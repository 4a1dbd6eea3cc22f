// The family's field tables as their users see them (qor record fields):
// keys, kinds, defaults and Parameter names pinned, checked by eye against
// the tables they were written from. The walk over every record type checks
// that the records keep their tables; this checks the tables themselves.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "records/QorCommandLine.h"

namespace {

TEST(PipetteFieldTables, AreWhatQorRecordFieldsPrints) {
    if (!record_test::QorIsBuilt()) GTEST_SKIP() << "the qor tool isn't built";
    const auto outcome = record_test::RunQor("record fields PipetteXMLMarshaller");
    EXPECT_EQ(outcome.status, 0);
    std::ifstream in(std::string(QOR_SOURCE_DIR) + "/tests/pipette/PipetteXMLMarshaller.fields", std::ios::binary);
    std::ostringstream golden;
    golden << in.rdbuf();
    EXPECT_EQ(outcome.output, golden.str());
}

}  // namespace
