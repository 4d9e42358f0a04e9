//! percent-encoding, with the set of characters that our encoder keeps.
use percent_encoding::{percent_decode, percent_encode, AsciiSet, NON_ALPHANUMERIC};

const ESCAPED: &AsciiSet = &NON_ALPHANUMERIC
    .remove(b'!').remove(b'*').remove(b'-').remove(b'.').remove(b'@').remove(b'_').remove(b'+');

unsafe fn copy<'a>(parts: impl Iterator<Item = &'a [u8]>, out: *mut u8) -> usize {
    let mut written = 0;
    for part in parts {
        std::ptr::copy_nonoverlapping(part.as_ptr(), out.add(written), part.len());
        written += part.len();
    }
    written
}

#[no_mangle]
pub unsafe extern "C" fn peer_percent_encode(text: *const u8, size: usize, out: *mut u8) -> usize {
    copy(percent_encode(super::bytes(text, size), ESCAPED).map(str::as_bytes), out)
}

#[no_mangle]
pub unsafe extern "C" fn peer_percent_decode(text: *const u8, size: usize, out: *mut u8) -> usize {
    let decoded: std::borrow::Cow<[u8]> = percent_decode(super::bytes(text, size)).into();
    copy(std::iter::once(&decoded[..]), out)
}
