// The document form over every document the corpus and the examples hold, through the tool's
// table of TYPEs: each document that decodes as a TYPE its case names is written in the document
// form, which decodes into a value equal field by field to the first (read without the import
// flag: the fresh identifiers are in it), and writing that again gives the same bytes.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../tools/orvane/Types.hpp"
#include "support/SameFields.hpp"

using namespace orvane;
using namespace orvane::tool;
using orvane::test::sameFields;

namespace {

namespace fs = std::filesystem;

struct Document {
  std::string where;  // the case or example file
  const TypeEntry* type;
  DateStrategy dates = DateStrategy::iso8601;
  bool importSource = false;
  std::string text;
};

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// The documents of one case (its standard input and its files), once for each TYPE its
// arguments name, with its date strategy and import flag.
void addCase(const fs::path& path, std::vector<Document>& out) {
  std::istringstream in(readFile(path));
  std::vector<std::string> args, texts;
  std::string* section = nullptr;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("--- ", 0) == 0) {
      bool document = line == "--- stdin" || line.rfind("--- file ", 0) == 0;
      section = document ? &texts.emplace_back() : nullptr;
    } else if (section) {
      *section += line + '\n';
    } else if (line.rfind("args:", 0) == 0) {
      std::istringstream words(line.substr(5));
      for (std::string w; words >> w;) args.push_back(w);
    }
  }
  DateStrategy dates = DateStrategy::iso8601;
  bool importSource = false;
  std::vector<const TypeEntry*> types;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--import-source") importSource = true;
    if (args[i] == "--dates" && i + 1 < args.size()) {
      const std::string& s = args[i + 1];
      dates = s == "seconds"        ? DateStrategy::seconds
              : s == "milliseconds" ? DateStrategy::milliseconds
              : s == "deferred"     ? DateStrategy::deferred
                                    : DateStrategy::iso8601;
    }
    if (const TypeEntry* type = findType(args[i])) types.push_back(type);
  }
  for (const TypeEntry* type : types) {
    for (const auto& text : texts) {
      if (!text.empty()) out.push_back({path.string(), type, dates, importSource, text});
    }
  }
}

std::vector<Document> documents() {
  std::vector<Document> out;
  std::vector<fs::path> cases;
  for (const auto& entry : fs::recursive_directory_iterator(ORVANE_SOURCE_DIR "/tests/corpus")) {
    if (entry.path().extension() == ".case") cases.push_back(entry.path());
  }
  std::sort(cases.begin(), cases.end());
  for (const auto& path : cases) addCase(path, out);
  const fs::path examples = ORVANE_SOURCE_DIR "/examples";
  for (const auto& [file, type] : {std::pair{"project.json", "Project"},
                                   {"snapshot.json", "Snapshot"},
                                   {"trail-list.json", "Snapshot"},
                                   {"border.json", "Border"}}) {
    out.push_back({(examples / file).string(), findType(type), DateStrategy::iso8601, false,
                   readFile(examples / file)});
  }
  return out;
}

// What the decoder reads: the text followed by the padding the parser needs.
std::string_view padded(std::vector<char>& buffer, std::string_view text) {
  buffer.assign(text.size() + JsonDecoder::kPadding, '\0');
  std::copy(text.begin(), text.end(), buffer.begin());
  return {buffer.data(), text.size()};
}

// Writes what a value shows, as dump does.
struct Listing {
  std::string text;
  JsonWriter writer{text};
  JsonFieldWriter fields{writer};
};

}  // namespace

TEST(DocumentForm, EveryCorpusDocumentThatDecodesReadsBackFieldByField) {
  int decoded = 0;
  std::vector<char> buffer;
  for (const auto& doc : documents()) {
    SCOPED_TRACE(doc.where + " as " + std::string(doc.type->name));
    Settings first, plain;
    first.decoding.dates = first.encoding.dates = doc.dates;
    plain.decoding.dates = plain.encoding.dates = doc.dates;
    if (doc.importSource) first.decoding.userInfo[CodingUserInfoKey::fromImportSource()] = true;

    JsonDecoder decoder(first.decoding), again(plain.decoding);
    Listing before, after;
    std::string written;
    try {
      written = gatheredDocument(*doc.type, decoder, padded(buffer, doc.text), first, &before.fields);
    } catch (const DecodingError&) {
      continue;  // a case of a document that does not decode
    } catch (const EncodingError& e) {
      ADD_FAILURE() << "decodes but its document form cannot be written: " << e.what();
      continue;
    }
    before.writer.flush();
    ++decoded;
    std::string rewritten;
    try {
      rewritten = gatheredDocument(*doc.type, again, padded(buffer, written), plain, &after.fields);
    } catch (const DecodingError& e) {
      ADD_FAILURE() << "its document form does not decode: " << e.what() << "\n" << written;
      continue;
    }
    after.writer.flush();
    EXPECT_TRUE(sameFields(before.text, after.text)) << written;
    EXPECT_EQ(rewritten, written);
  }
  // The corpus is hundreds of cases, and most of their documents decode.
  EXPECT_GT(decoded, 150);
}
