// The command-line tool, run as its users run it.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/decode_run.h"
#include "support/picture_encoder.h"
#include "support/scan_writer.h"

namespace {

class Zeldecode : public testing::Test {
  protected:
    void SetUp() override {
        m_folder = std::filesystem::temp_directory_path() / ("zeldecode-test-" + std::to_string(getpid()));
        std::filesystem::create_directories(m_folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::string path(const std::string& name) const { return (m_folder / name).string(); }

    void write(const std::string& name, const Bytes& bytes) const {
        std::ofstream(path(name), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    void write(const std::string& name, const std::string& text) const {
        write(name, Bytes(text.begin(), text.end()));
    }
    Bytes read(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return Bytes(std::istreambuf_iterator<char>(file), {});
    }
    std::string text(const std::string& name) const {
        const Bytes bytes = read(name);
        return std::string(bytes.begin(), bytes.end());
    }

    // Runs the tool in the folder; returns its status.
    int run(const std::string& arguments) {
        const std::string command =
            "cd '" + m_folder.string() + "' && '" ZELDECODE "' " + arguments + " >out.txt 2>err.txt";
        const int status = std::system(command.c_str());
        out = text("out.txt");
        err = text("err.txt");
        return WEXITSTATUS(status);
    }

    void expectUsageError(const std::string& arguments) {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_EQ(out, "") << arguments;
        EXPECT_EQ(err.rfind("zeldecode: ", 0), 0u) << arguments << ": " << err;
    }

    std::string out, err;

  private:
    std::filesystem::path m_folder;
};

Bytes samplePicture() {
    return encodePicture(makePicture(320, 240, 1), {});
}

}  // namespace

TEST_F(Zeldecode, OnePicture) {
    write("in.jpg", samplePicture());
    EXPECT_EQ(run("9 in.jpg out.raw"), 0);
    EXPECT_EQ(out, "code 0 width 240 height 180 bytes 129600\n");
    EXPECT_EQ(err, "");
    EXPECT_EQ(read("out.raw"), runDecode(9, samplePicture()).picture);
}

TEST_F(Zeldecode, FailedDecodesAreNoFailureOfTheTool) {
    Bytes half = samplePicture();
    half.resize(half.size() / 2);
    write("half.jpg", half);
    EXPECT_EQ(run("1 half.jpg out.raw"), 0);
    const Decoded decoded = runDecode(1, half);
    EXPECT_EQ(out, "code 11 width 320 height 240 bytes " + std::to_string(decoded.picture.size()) + "\n");
    EXPECT_EQ(read("out.raw"), decoded.picture);
    write("empty.jpg", Bytes{});
    EXPECT_EQ(run("3 empty.jpg out.raw"), 0);
    EXPECT_EQ(out, "code 11 width 160 height 120 bytes 0\n");
    EXPECT_EQ(read("out.raw"), Bytes());
    for (const char* mode : {"0", "15", "-3"}) {
        EXPECT_EQ(run(std::string(mode) + " half.jpg out.raw"), 0);
        EXPECT_EQ(out, "code 18 width 0 height 0 bytes 0\n");
    }
}

TEST_F(Zeldecode, BareScanData) {
    Bytes scan = greyScan(300, Sampling::k420);
    scan.insert(scan.end(), {0xFF, 0xD9});
    write("scan.bin", scan);
    EXPECT_EQ(run("--frame 2 9 scan.bin out.raw"), 0);
    EXPECT_EQ(out, "code 0 width 240 height 180 bytes 129600\n");
    EXPECT_EQ(read("out.raw"), Bytes(129600, 128));
    expectUsageError("--frame 0 9 scan.bin out.raw");
    expectUsageError("--frame 4 9 scan.bin out.raw");
    expectUsageError("--frame x 9 scan.bin out.raw");
    expectUsageError("--frame 1");
    expectUsageError("--frame");
}

TEST_F(Zeldecode, Batch) {
    write("in.jpg", samplePicture());
    write("with blank.jpg", samplePicture());
    Bytes scan = greyScan(300, Sampling::k444);
    scan.insert(scan.end(), {0xFF, 0xD9});
    write("scan.bin", scan);
    write("list", std::string("9 in.jpg a.raw\n\n1 \"with blank.jpg\" b.raw\r\n--frame 3 10 scan.bin c.raw"));
    EXPECT_EQ(run("--batch list"), 0);
    EXPECT_EQ(out,
              "code 0 width 240 height 180 bytes 129600\n"
              "code 0 width 320 height 240 bytes 153600\n"
              "code 0 width 160 height 120 bytes 57600\n");
    EXPECT_EQ(read("b.raw"), runDecode(1, samplePicture()).picture);
    EXPECT_EQ(read("c.raw"), Bytes(57600, 128));
}

TEST_F(Zeldecode, ABatchGoesOnAfterABadLine) {
    write("in.jpg", samplePicture());
    write("list", std::string("9 missing.jpg a.raw\n9\n3 in.jpg b.raw\n"));
    EXPECT_EQ(run("--batch list"), 2);
    EXPECT_EQ(out, "code 0 width 160 height 120 bytes 38400\n");
    EXPECT_NE(err.find("line 1 of list"), std::string::npos);
    EXPECT_NE(err.find("line 2 of list"), std::string::npos);
}

TEST_F(Zeldecode, WrongArguments) {
    write("in.jpg", samplePicture());
    expectUsageError("");
    expectUsageError("9");
    expectUsageError("9 in.jpg");
    expectUsageError("9 in.jpg out.raw more");
    expectUsageError("nine in.jpg out.raw");
    expectUsageError("9x in.jpg out.raw");
    expectUsageError("99999999999 in.jpg out.raw");
    expectUsageError("--batch");
    expectUsageError("--batch missing-list");
    expectUsageError("9 missing.jpg out.raw");
    expectUsageError("9 . out.raw");
    expectUsageError("9 in.jpg no-such-folder/out.raw");
    EXPECT_TRUE(read("out.raw").empty());
}

TEST_F(Zeldecode, Help) {
    EXPECT_EQ(run("--help"), 0);
    EXPECT_EQ(out.rfind("usage: zeldecode MODE INPUT OUTPUT\n", 0), 0u);
    EXPECT_EQ(err, "");
}
