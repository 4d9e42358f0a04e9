/* The bytes of the arguments as they stand in a URL. */
#include <stdio.h>
#include <string.h>
#include <stringkernels.h>

int main(int count, char** words) {
  for (int at = 1; at < count; ++at) {
    stringkernels_bytes encoded;
    const stringkernels_status status =
        stringkernels_transform(STRINGKERNELS_ENCODE_URL, words[at], strlen(words[at]), &encoded);
    if (status != STRINGKERNELS_OK) return (int)status;
    puts(encoded.data);
    stringkernels_free(&encoded);
  }
  return 0;
}
