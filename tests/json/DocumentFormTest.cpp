// The document form as the JSON coder writes it: what it writes decodes into a value equal field
// by field to the one written, writing that again gives the same bytes, and where numbers or
// text would not read back as written (dates far from 1970, milliseconds, rectangles, years at
// the edge of RFC 3339) it writes what does. Corpus documents are in tests/tool; which keys each
// record writes is in FieldRulesTest.
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/internal/DateText.hpp>

#include "generate.hpp"
#include "support/Records.hpp"
#include "support/SameFields.hpp"

using namespace orvane;
using namespace orvane::test;

namespace {

JsonEncoderOptions documentForm(DateStrategy dates = DateStrategy::iso8601) {
  JsonEncoderOptions options;
  options.form = EncodingForm::document;
  options.dates = dates;
  return options;
}

// The shortest text of a double, as JSON has it.
std::string text(double value) {
  char buffer[32];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

JsonDecoderOptions readDates(DateStrategy dates) {
  JsonDecoderOptions options;
  options.dates = dates;
  return options;
}

// Writes `value` in the document form, reads it back, and checks both promises: equal fields,
// and the same text when written again.
template <class T>
void expectReadsBack(const T& value, DateStrategy dates = DateStrategy::iso8601) {
  const std::string written = JsonEncoder(documentForm(dates)).encode(value);
  const T again = JsonDecoder(readDates(dates)).decode<T>(written);
  EXPECT_TRUE(sameFields(fieldsOf(value), fieldsOf(again)));
  EXPECT_TRUE(written == JsonEncoder(documentForm(dates)).encode(again))
      << "the document form is not a fixed point";
}

}  // namespace

// Generated projects and snapshots, as large as CI affords; the bench writes larger ones.
TEST(DocumentForm, GeneratedProjectsAndSnapshotsReadBackFieldByField) {
  using Snapshots = std::vector<Ref<Snapshot>>;
  for (std::size_t megabytes : {1, 10}) {
    SCOPED_TRACE(std::to_string(megabytes) + " MB");
    const std::size_t bytes = megabytes * 1000 * 1000;
    expectReadsBack(decodeJson<Ref<Project>>(bench::generateProject(bytes, megabytes)));
    expectReadsBack(decodeJson<Snapshots>(bench::generateSnapshots(bytes, megabytes)));
  }
  // The records' own encoding is no substitute: a project writes its header only.
  auto project = decodeJson<Ref<Project>>(bench::generateProject(100 * 1000));
  EXPECT_THROW(decodeJson<Ref<Project>>(encodeJson(project)), DecodingError);
}

// A project holds dates in many records; each strategy writes them so that they read back to
// the microsecond.
TEST(DocumentForm, EveryDateStrategyReadsBackAProject) {
  auto project = decodeJson<Ref<Project>>(bench::generateProject(200 * 1000, 7));
  for (auto dates : {DateStrategy::iso8601, DateStrategy::seconds, DateStrategy::milliseconds,
                     DateStrategy::deferred}) {
    SCOPED_TRACE(static_cast<int>(dates));
    expectReadsBack(project, dates);
  }
}

// Dates with microseconds far from 1970 (or from 2001, for the deferred strategy) need more
// digits than a plain quotient keeps: some written as that quotient would read back a
// microsecond off. The coder writes a neighbouring number that reads back exactly. The dates
// are those a numeric strategy reads: from numbers, up to the year 9999.
TEST(DocumentForm, DatesReadBackToTheMicrosecondInEveryNumericStrategy) {
  std::mt19937_64 rng(5);
  for (auto dates : {DateStrategy::seconds, DateStrategy::milliseconds, DateStrategy::deferred}) {
    SCOPED_TRACE(static_cast<int>(dates));
    const double scale = dates == DateStrategy::milliseconds ? 1e3 : 1;
    std::uniform_real_distribution<double> number(-6e10 * scale, 2.5e11 * scale);
    int quotientsOff = 0;
    for (int i = 0; i < 4000; ++i) {
      const Date date = decodeJson<Date>(text(number(rng)), readDates(dates));
      // Whether the plain quotient would have read back, to know that the hard cases were met.
      const double m = static_cast<double>(date.time_since_epoch().count());
      const double seconds = dates == DateStrategy::milliseconds ? (m / 1e3) / 1e3
                             : dates == DateStrategy::deferred
                                 ? (m / 1e6 - kReferenceDateOffset) + kReferenceDateOffset
                                 : m / 1e6;
      quotientsOff += dateFromSeconds(seconds) != date;
      const std::string json = JsonEncoder(documentForm(dates)).encode(date);
      ASSERT_EQ(decodeJson<Date>(json, readDates(dates)), date) << json;
    }
    EXPECT_GT(quotientsOff, 0) << "no date needed more than the quotient";
  }
}

// RFC 3339 has four-digit years: text read with an offset may name an instant just outside
// them in UTC, and is written with an offset again; an instant no offset reaches is an error
// that leaves the output as it was.
TEST(DocumentForm, IsoDatesAtTheEdgesOfFourDigitYearsKeepTheirInstant) {
  using namespace std::chrono;
  const Date first{sys_days{year{0} / 1 / 1}.time_since_epoch()};
  const Date end{sys_days{year{10000} / 1 / 1}.time_since_epoch()};
  for (Date date : {first, first - 1us, first - 23h - 59min, end - 1us, end, end + 23h + 58min}) {
    const std::string json = encodeJson(date);
    EXPECT_EQ(decodeJson<Date>(json), date) << json;
  }
  for (Date date : {first - 24h, end + 24h}) {
    std::string out = "kept";
    EXPECT_THROW(JsonEncoder(documentForm()).encodeInto(out, date), EncodingError);
    EXPECT_EQ(out, "kept");
  }
}

// An organization's document counts milliseconds where the field holds seconds: the seconds
// read multiply back to milliseconds that read as the same seconds, for any number read.
TEST(DocumentForm, MillisecondsReadBackAsTheSameSeconds) {
  std::mt19937_64 rng(3);
  std::uniform_real_distribution<double> exponent(-300, 300);
  for (int i = 0; i < 2000; ++i) {
    const double sign = i % 2 ? 1 : -1;
    const double milliseconds =
        sign * std::ldexp(1.0 + std::ldexp(double(rng() >> 12), -52), int(exponent(rng)));
    auto organization = decodeJson<Ref<Organization>>(R"({"_id":"o","name":"n","transitionLeft":)" +
                                                      text(milliseconds) + "}");
    expectReadsBack(organization);
    expectReadsBack(
        decodeJson<Organization::Partial>(R"({"transitionLeft":)" + text(milliseconds) + "}"));
  }
}

// A rectangle is written standardized by the records' encoding, as stored by the document form.
TEST(DocumentForm, RectanglesKeepTheirStoredSign) {
  auto link = decodeJson<Ref<Link>>(R"({"rect":{"x":10,"y":20,"width":-4,"height":5}})");
  EXPECT_EQ(encodeJson(link), R"({"rect":{"x":6,"y":20,"width":4,"height":5}})");
  EXPECT_EQ(JsonEncoder(documentForm()).encode(link),
            R"({"rect":{"x":10,"y":20,"width":-4,"height":5}})");
  expectReadsBack(link);
}

// A decode-only value has no encoding operation: the records' form refuses it without writing
// anything, the document form writes it.
TEST(DocumentForm, DecodeOnlyValuesHaveOnlyTheDocumentForm) {
  auto manifest = decodeJson<Ref<Extension::Manifest>>(
      R"({"name":"Lint","version":"1","moduleURL":"https://ext.example.com/m.js","options":[
          {"id":"o","name":"Mode","type":"picker","default":"b",
           "options":[{"name":"A","value":"a"},{"name":"B","value":"b"}]}]})");
  std::string out = "kept";
  EXPECT_THROW(JsonEncoder().encodeInto(out, manifest), EncodingError);
  EXPECT_EQ(out, "kept");
  expectReadsBack(manifest);
  expectReadsBack(decodeJson<Project::Partial>(
      R"({"_id":"p","status":"archived","users":[{"user":{"email":"a@b.c"},"role":"owner"}]})"));
}
