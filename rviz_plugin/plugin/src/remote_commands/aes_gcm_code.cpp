#include "aes_gcm_code.h"

#include "remote_log.h"

#include <openssl/evp.h>

#include <memory>

namespace rviz_plugin {

namespace {
using Context = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;
constexpr int setIvLength = EVP_CTRL_GCM_SET_IVLEN;  // 9

struct Steps {
    const char* create;
    const char* init;
    const char* ivLength;
    const char* keyAndIv;
    const char* update;
};
const Steps encryption{"Encryption error: Failed to create and initialize the context.",
                       "Encryption error: Failed to initialize the encryption operation.",
                       "Encryption error: Failed to set IV length.",
                       "Encryption error: Failed to initialize key and IV.",
                       "Encryption error: Failed to provide the message to be encrypted, and obtain the encrypted "
                       "output."};
const Steps decryption{"Decryption error: Failed to create and initialize the context.",
                       "Decryption error: Failed to initialize the decryption operation.",
                       "Decryption error: Failed to set IV length.",
                       "Decryption error: Failed to initialize key and IV.",
                       "Decryption error: Failed to provide the message to be decrypted, and obtain the plaintext "
                       "output."};

// Runs the five steps of either direction; output is written to out (room for inputLength bytes).
bool Run(bool encrypt, const Steps& steps, const unsigned char* key, const unsigned char* iv, int ivLength,
         const unsigned char* input, int inputLength, unsigned char* out, int& outLength)
{
    const Context context(EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free);
    if (!context) {
        RemoteError(steps.create);
        return false;
    }
    const auto init = encrypt ? EVP_EncryptInit_ex : EVP_DecryptInit_ex;
    if (init(context.get(), EVP_aes_256_gcm(), nullptr, nullptr, nullptr) != 1) {
        RemoteError(steps.init);
        return false;
    }
    if (EVP_CIPHER_CTX_ctrl(context.get(), setIvLength, ivLength, nullptr) != 1) {
        RemoteError(steps.ivLength);
        return false;
    }
    if (init(context.get(), nullptr, nullptr, key, iv) != 1) {
        RemoteError(steps.keyAndIv);
        return false;
    }
    const auto update = encrypt ? EVP_EncryptUpdate : EVP_DecryptUpdate;
    if (update(context.get(), out, &outLength, input, inputLength) != 1) {
        RemoteError(steps.update);
        return false;
    }
    return true;
}
} // namespace

std::vector<unsigned char> AesGcmCode::EncryptString(const std::string& plain, const std::vector<unsigned char>& key,
                                                     const std::vector<unsigned char>& iv) const
{
    std::vector<unsigned char> cipher(iv.size() + plain.size() + 16);
    std::copy(iv.begin(), iv.end(), cipher.begin());
    int written = 0;
    if (!Run(true, encryption, key.data(), iv.data(), static_cast<int>(iv.size()),
             reinterpret_cast<const unsigned char*>(plain.data()), static_cast<int>(plain.size()),
             cipher.data() + iv.size(), written)) {
        return {};
    }
    cipher.resize(iv.size() + static_cast<std::size_t>(written));
    return cipher;
}

bool AesGcmCode::DecryptString(const std::vector<unsigned char>& cipher, const std::vector<unsigned char>& key,
                               std::size_t ivSize, unsigned char* out, std::size_t capacity, int& length) const
{
    if (out == nullptr) {
        RemoteError("Password is nullptr.");
        return false;
    }
    if (cipher.size() < ivSize) {
        RemoteError("Decryption error: The length of cipherData is less than IV.");
        return false;
    }
    const std::size_t textSize = cipher.size() - ivSize;
    if (textSize > capacity) {
        RemoteError("Decryption error: The password is longer than its buffer (" + std::to_string(textSize) + " > " +
                    std::to_string(capacity) + " bytes).");
        return false;
    }
    length = 0;
    return Run(false, decryption, key.data(), cipher.data(), static_cast<int>(ivSize), cipher.data() + ivSize,
               static_cast<int>(textSize), out, length);
}

} // namespace rviz_plugin
