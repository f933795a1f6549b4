// libFuzzer target: saved connections as the panel's configuration brings them back, and their cipher
// text. The bytes are split at newlines into the values of "ip", "port", "userName" and "password" of
// a configuration map (the first byte's bits leave keys out) and loaded; the same bytes as hexadecimal
// and as raw cipher text are decrypted into a small and a full-size buffer (a fixed key: the root key
// derivation is not what is tried here). rviz's own YAML reading is not part of this.
#include "remote_commands/aes_gcm_code.h"
#include "remote_commands/cipher_handler.h"
#include "remote_commands/connection.h"

#include <rviz/config.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    rviz::Config config;
    const char* keys[] = {"ip", "port", "userName", "password"};
    std::size_t start = size > 0 ? 1 : 0;
    for (int index = 0; index < 4; ++index) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        if (size == 0 || (data[0] & (1 << index)) == 0) {
            config.mapSetValue(keys[index], QString::fromUtf8(text.data() + start, static_cast<int>(end - start)));
        }
        start = std::min(end + 1, text.size());
    }
    rviz_plugin::Connection connection;
    if (connection.Load(config)) {
        connection.Save(rviz::Config());
    }

    static const std::vector<unsigned char> key(32, 0x5a);
    const rviz_plugin::AesGcmCode code;
    for (const std::vector<unsigned char>& cipher :
         {rviz_plugin::CipherHandler::HexToBinary(text), std::vector<unsigned char>(data, data + size)}) {
        unsigned char small[16];
        int length = 0;
        if (code.DecryptString(cipher, key, 12, small, sizeof(small), length) &&
            (length < 0 || static_cast<std::size_t>(length) > sizeof(small))) {
            __builtin_trap();  // more written than the buffer holds
        }
        std::vector<unsigned char> full(5000);
        code.DecryptString(cipher, key, 12, full.data(), full.size(), length);
    }
    return 0;
}
