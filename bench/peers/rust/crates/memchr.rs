//! memchr: substring search.
use memchr::memmem;

#[no_mangle]
pub unsafe extern "C" fn peer_memmem_count(text: *const u8, size: usize, needle: *const u8, length: usize) -> usize {
    memmem::find_iter(super::bytes(text, size), super::bytes(needle, length)).count()
}
