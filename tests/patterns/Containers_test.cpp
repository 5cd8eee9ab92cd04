// Measured patterns in zip archives and binary files, made here value by value.
#include <gtest/gtest.h>
#ifdef TALVEN_TEST_LIBZIP
#include <zip.h>
#endif

#include <bit>
#include <cstdint>

#include "patterns/PatternFormats.h"
#include "support/TestFiles.h"

namespace talven {
namespace {

using test::ErrorOf;

void Put(std::string& bytes, std::size_t offset, std::uint64_t value, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) bytes[offset + i] = static_cast<char>(value >> 8 * i & 0xFF);
}
void PutF64(std::string& bytes, std::size_t offset, double value) {
  Put(bytes, offset, std::bit_cast<std::uint64_t>(value), 8);
}
void PutF32(std::string& bytes, std::size_t offset, float value) {
  Put(bytes, offset, std::bit_cast<std::uint32_t>(value), 4);
}

/// A range of three counts from 10 degrees on, after the hardware's wavelengths.
std::string Raw4(const std::string& scan_type) {
  std::string bytes = std::string("RAW4.00\0", 8).append(53, '\0');
  std::string hardware(136, '\0');
  Put(hardware, 0, 30, 4);
  Put(hardware, 4, hardware.size(), 4);
  PutF64(hardware, 80, 1.5406);
  PutF64(hardware, 88, 1.5444);
  PutF64(hardware, 104, 0.5);
  std::string range(172, '\0');
  Put(range, 4, 3, 4);
  range.replace(32, scan_type.size(), scan_type);
  PutF64(range, 72, 10.0);
  PutF64(range, 80, 0.5);
  Put(range, 136, 4, 4);
  for (int i = 0; i < 3; ++i) PutF32(range, 160 + 4 * static_cast<std::size_t>(i), static_cast<float>(i) + 0.5F);
  return bytes + hardware + range;
}

TEST(Containers, ReadRaw4) {
  const std::string raw = Raw4("Locked Coupled");
  const PatternFile file = ReadPattern("a.raw", raw);
  EXPECT_EQ(file.format, "RAW4.00");
  EXPECT_EQ(file.pattern.two_theta, (std::vector<double>{10, 10.5, 11}));
  EXPECT_EQ(file.pattern.counts, (std::vector<double>{0.5, 1.5, 2.5}));
  EXPECT_EQ(file.pattern.wavelength, 1.5406);
  EXPECT_EQ(file.pattern.alpha2_ratio, 0.5);
  EXPECT_EQ(ErrorOf([] { ReadPattern("a.raw", Raw4("Rocking Curve")); }),
            "a.raw: expected a scan of 2theta, found \"Rocking Curve\"");
  for (std::size_t tenth = 1; tenth < 10; ++tenth)
    EXPECT_NE(ErrorOf([&] { ReadPattern("a.raw", raw.substr(0, raw.size() * tenth / 10)); }), "(no error)") << tenth;
  std::string many = raw;
  Put(many, 61 + 136 + 4, 1'000'000'000, 4);
  EXPECT_EQ(ErrorOf([&] { ReadPattern("a.raw", many); }),
            "a.raw: expected 4000000000 bytes at byte 357, found a file of 369");
}

#ifdef TALVEN_TEST_LIBZIP

using Entries = std::vector<std::pair<std::string, std::string>>;

std::string Zip(const Entries& entries) {
  const test::TestDirectory directory;
  zip_t* const archive = zip_open("a.zip", ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const auto& [name, content] : entries)
    zip_file_add(archive, name.c_str(), zip_source_buffer(archive, content.data(), content.size(), 0), 0);
  EXPECT_EQ(zip_close(archive), 0);
  return test::ReadFile("a.zip");
}

std::string Conditions(const std::string& axis) {
  return "<A><HW><XrayGenerator><WaveType>Ka1</WaveType><WavelengthKalpha1>1.5406</WavelengthKalpha1></XrayGenerator>"
         "</HW><ScanInformation><AxisName>" +
         axis + "</AxisName></ScanInformation></A>";
}

Entries Rasx(const std::string& axis) {
  return {{"Data0/Profile0.txt",
           "\xEF\xBB\xBF"
           "10.0\t5\t1\r\n10.5\t6\t10\r\n"},
          {"Data0/MesurementConditions0.xml", Conditions(axis)},
          {"Data1/Profile1.txt", "20 1\n21 2\n22 3\n"}};
}

TEST(Containers, ReadRasx) {
  const std::string rasx = Zip(Rasx("TwoThetaTheta"));
  const PatternFile file = ReadPattern("a.rasx", rasx);
  EXPECT_EQ(file.pattern.counts, (std::vector<double>{5, 60}));
  EXPECT_EQ(file.pattern.two_theta, (std::vector<double>{10, 10.5}));
  EXPECT_EQ(file.pattern.wavelength, 1.5406);
  EXPECT_EQ(file.notices, (std::vector<std::string>{"The first of 2 scans was read.",
                                                    "The intensities were multiplied by their attenuation factors."}));
  EXPECT_EQ(ReadPattern("a.rasx", rasx, {.scan = 2}).pattern.counts, (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(ErrorOf([] { ReadPattern("a.rasx", Zip(Rasx("Omega"))); }),
            "a.rasx: expected a scan of 2theta, found a scan of Omega");
  const std::string others = Zip({{"Data10/Profile0.txt", "10 7\n11 8\n"},
                                  {"Data2/Profile2.txt", "20 1\n21 2\n"},
                                  {"Data2/MeasurementConditions2.xml", Conditions("TwoTheta")}});
  EXPECT_EQ(ReadPattern("a.rasx", others, {.scan = 1}).pattern.wavelength, 1.5406);
  EXPECT_EQ(ReadPattern("a.rasx", others, {.scan = 2}).pattern.counts, (std::vector<double>{7, 8}));
  for (std::size_t tenth = 1; tenth < 10; ++tenth)
    EXPECT_NE(ErrorOf([&] { ReadPattern("a.rasx", rasx.substr(0, rasx.size() * tenth / 10)); }), "(no error)");
}

std::string RawData(const std::string& views, const std::string& information = "") {
  return "<RawData><DataRoutes><DataRoute RouteFlag=\"Measured\"><ScanInformation VisibleName=\"Coupled\"><ScanAxes>"
         "<ScanAxisInfo AxisId=\"Theta\"/><ScanAxisInfo AxisName=\"TwoTheta\"/></ScanAxes>" +
         information +
         "</ScanInformation>"
         "<Datum>1,2,5.00,10.0,7</Datum><Datum>1,1,5.25,10.5,8</Datum>" +
         views + "</DataRoute></DataRoutes><WaveLengthAlpha1 Value=\"1.5406\"/></RawData>";
}

TEST(Containers, ReadBrml) {
  const std::string view = "<DataViews><RawDataView Start=\"4\" Length=\"";
  const auto read = [](const std::string& views) {
    return ReadPattern("a.brml", Zip({{"Experiment0/RawData0.xml", RawData(views)}})).pattern;
  };
  EXPECT_EQ(read("").two_theta, (std::vector<double>{10, 10.5}));
  EXPECT_EQ(read("").counts, (std::vector<double>{14, 8})) << "times the absorption factor";
  EXPECT_EQ(read(view + "1\"><Recording/></RawDataView></DataViews>").counts, (std::vector<double>{7, 8}));
  EXPECT_EQ(read("").wavelength, 1.5406);
  const std::string stopped =
      Zip({{"Experiment0/RawData0.xml", RawData("", "<MeasurementPoints>900</MeasurementPoints>")}});
  EXPECT_EQ(ReadPattern("a.brml", stopped).notices.front(), "The scan was to have 900 points; it ended after 2.");
  EXPECT_EQ(ErrorOf([&] { read(view + "192\"><Recording/></RawDataView></DataViews>"); }),
            "a.brml (Experiment0/RawData0.xml): expected one count to a point, found 192, as in an image");
}

TEST(Containers, RefuseArchivesThatAreNotSound) {
  const std::string bomb = Zip({{"Data0/Profile0.txt", std::string(17'000'000, '1')}});
  EXPECT_EQ(ErrorOf([&] { ReadPattern("a.rasx", bomb); }),
            "a.rasx (Data0/Profile0.txt): expected an entry of at most 16000000 bytes, found 17000000");
  EXPECT_EQ(ErrorOf([] {
              ReadPattern("a.rasx", Zip({{"Data0/../../x", "1"}}));
            }),
            "a.rasx: expected names of entries that stay inside the archive, found \"Data0/../../x\"");
  EXPECT_EQ(ErrorOf([] {
              ReadPattern("a.xy", Zip({{"word/document.xml", "1"}}));
            }),
            "a.xy: expected a zip archive of kind RASX or BRML, found one with \"word/document.xml\"");
  EXPECT_EQ(ErrorOf([] { ReadPattern("a.xy", "PK\3\4 and no more"); }),
            "a.xy: expected a whole zip archive, found none (Not a zip archive)");
}

#endif

}  // namespace
}  // namespace talven
