// Saved connections and their passwords: the key material's files and rights, the cipher, the text
// form, the manager's limits and its configuration.
#include "../support/ros_test_main.h"
#include "remote_commands/connection_manager.h"

#include <ros/param.h>
#include <rviz/config.h>

#include <sys/stat.h>

#include <filesystem>

namespace rviz_plugin {
namespace {

namespace fs = std::filesystem;

class Connections : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        work = std::make_unique<test_support::TempDir>();
        ros::param::set("orsaPath", work->Path().string());
        manager = std::make_unique<ConnectionManager>();
        manager->Init([]() { ++configChanges; });
    }
    static void TearDownTestSuite()
    {
        manager.reset();
        work.reset();
    }
    static Connection Make(const std::string& ip, const std::string& user, const std::string& port = "22",
                           const std::string& password = "secret")
    {
        Connection connection;
        connection.SetIp(ip);
        connection.SetPort(port);
        connection.SetUserName(user);
        connection.SetPassword(password);
        return connection;
    }
    static std::string Decrypted(const Connection& connection)
    {
        unsigned char buffer[64] = {};
        int length = 0;
        if (!connection.GetDecryptedPassword(buffer, sizeof(buffer), length)) {
            return "<failed>";
        }
        return std::string(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(length));
    }

    static std::unique_ptr<test_support::TempDir> work;
    static std::unique_ptr<ConnectionManager> manager;
    static int configChanges;
};

std::unique_ptr<test_support::TempDir> Connections::work;
std::unique_ptr<ConnectionManager> Connections::manager;
int Connections::configChanges = 0;

TEST_F(Connections, KeyMaterialIsPrivateAndThePasswordOnlyCipherText)
{
    ASSERT_TRUE(Connection::cipherHandler.IsInitialized());
    const fs::path material = work->Path() / "config" / "material";
    struct stat info {};
    ASSERT_EQ(stat(material.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700U);
    for (const char* name : {"dkey", "skey", "salts"}) {
        ASSERT_EQ(stat((material / name).c_str(), &info), 0) << name;
        EXPECT_EQ(info.st_mode & 0777, 0600U) << name;
        EXPECT_EQ(info.st_size, 32) << name;
    }
    const Connection first = Make("10.0.0.1", "car");
    const Connection second = Make("10.0.0.1", "car");
    EXPECT_EQ(first.GetPassword().size(), 12U + 6U);  // IV, then as many bytes as the password
    EXPECT_NE(first.GetPassword(), second.GetPassword());  // a new IV each time
    EXPECT_EQ(Decrypted(first), "secret");
    EXPECT_EQ(Decrypted(second), "secret");
    const std::string hex = CipherHandler::BinaryToHex(first.GetPassword());
    EXPECT_EQ(hex.size(), 36U);
    EXPECT_EQ(hex.find_first_not_of("0123456789ABCDEF"), std::string::npos);
    EXPECT_EQ(CipherHandler::HexToBinary(hex), first.GetPassword());
    EXPECT_EQ(CipherHandler::HexToBinary("0AfF7"), (std::vector<unsigned char>{0x0A, 0xFF, 0x07}));

    // A damaged cipher text decrypts to wrong text; a short one is refused; one too long for the
    // caller's buffer is refused before anything is written.
    Connection damaged = first;
    std::vector<unsigned char> cipher = first.GetPassword();
    cipher.back() ^= 0x01;
    damaged.SetCipherPassword(cipher);
    EXPECT_NE(Decrypted(damaged), "secret");
    damaged.SetCipherPassword({1, 2, 3});
    EXPECT_EQ(Decrypted(damaged), "<failed>");
    damaged.SetCipherPassword(std::vector<unsigned char>(12 + 65, 0x33));
    unsigned char small[64];
    std::fill(std::begin(small), std::end(small), 0xEE);
    int length = 0;
    EXPECT_FALSE(damaged.GetDecryptedPassword(small, sizeof(small), length));
    EXPECT_EQ(small[0], 0xEE);

    // Without the files the passwords cannot be read any more; the user types them again.
    fs::rename(material / "skey", material / "skey.saved");
    EXPECT_EQ(Decrypted(first), "<failed>");
    fs::rename(material / "skey.saved", material / "skey");
    EXPECT_EQ(Decrypted(first), "secret");
}

TEST_F(Connections, RecordsAreKeyedByAddressAndUserAndLimitedToTen)
{
    const int changesBefore = configChanges;
    manager->Add(Make("10.0.0.1", "car", "22"));
    manager->Add(Make("10.0.0.1", "car", "2222"));  // same address and user: replaced
    ASSERT_EQ(manager->GetConnections().size(), 1U);
    EXPECT_EQ(manager->GetConnections().front().GetPort(), "2222");
    EXPECT_EQ(manager->GetCurrentConnection().GetPort(), "2222");
    EXPECT_EQ(configChanges, changesBefore + 2);
    for (int index = 2; index <= 10; ++index) {
        manager->Add(Make("10.0.0." + std::to_string(index), "car"));
    }
    ASSERT_EQ(manager->GetConnections().size(), 10U);
    const Connection eleventh = Make("10.0.0.11", "car");
    manager->Add(eleventh);
    EXPECT_EQ(manager->GetConnections().size(), 10U);
    EXPECT_EQ(manager->GetCurrentConnection(), eleventh);  // kept outside the full list
    // A known login still takes a new password when the list is full.
    manager->Add(Make("10.0.0.3", "car", "22", "changed"));
    EXPECT_EQ(Decrypted(manager->GetConnection("10.0.0.3", "car")), "changed");
    manager->Remove(manager->GetConnection("10.0.0.2"));
    EXPECT_EQ(manager->GetConnections().size(), 9U);
    EXPECT_NE(manager->GetCurrentConnection(), eleventh);
    EXPECT_TRUE(manager->GetConnection("10.9.9.9").IsEmpty());
}

TEST_F(Connections, SavedAndLoadedWithoutTheClearPassword)
{
    rviz::Config config;
    manager->Save(config);
    const rviz::Config list = config.mapGetChild("Connections");
    ASSERT_EQ(list.listLength(), static_cast<int>(manager->GetConnections().size()));
    QString password;
    ASSERT_TRUE(list.listChildAt(0).mapGetString("password", &password));
    EXPECT_FALSE(password.contains("secret"));
    QString currentIp;
    EXPECT_TRUE(config.mapGetChild("Current Connection").mapGetString("ip", &currentIp));

    // An entry without "userName" is skipped; the rest load, and the current one is found again.
    rviz::Config broken = config;  // the same tree
    rviz::Config withoutUser = broken.mapGetChild("Connections").listChildAt(2);
    withoutUser.mapRemoveChild("userName");
    ConnectionManager loaded;
    loaded.Init(nullptr);
    loaded.Load(broken);
    EXPECT_EQ(loaded.GetConnections().size(), manager->GetConnections().size() - 1);
    EXPECT_EQ(loaded.GetCurrentConnection().GetIp(), currentIp.toStdString());
    EXPECT_EQ(Decrypted(loaded.GetConnections().front()), Decrypted(manager->GetConnections().front()));
}

} // namespace
} // namespace rviz_plugin

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "connections_test", [] { return RUN_ALL_TESTS(); });
}
