// RapidJSON: a document of categories and groups, each value as [flags, edit flags, type, value], written out (W2).
#include "benchmarks/Fixtures.h"
#include "benchmarks/PeerCases.h"
#include "benchmarks/peers/JsonTree.h"

namespace {

struct Tree {
    explicit Tree(int64_t size) { BuildJson(document, Shared<PlainA>(size)->Data()); }
    rapidjson::Document document;
};

} // namespace

void AddRapidJsonCases(std::vector<Case>& cases)
{
    cases.push_back({"W2", "rapidjson", [](int64_t size) {
                         auto tree = Shared<Tree>(size);
                         auto buffer = std::make_shared<rapidjson::StringBuffer>();
                         return Prepared{[tree, buffer] {
                                             return Timed([&] {
                                                 buffer->Clear();
                                                 rapidjson::Writer<rapidjson::StringBuffer> writer(*buffer);
                                                 tree->document.Accept(writer);
                                                 Keep(buffer->GetSize());
                                             });
                                         },
                                         static_cast<double>(size)};
                     }});
}
