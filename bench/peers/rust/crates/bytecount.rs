//! bytecount: how often a byte occurs.

#[no_mangle]
pub unsafe extern "C" fn peer_bytecount(text: *const u8, size: usize, byte: u8) -> usize {
    bytecount::count(super::bytes(text, size), byte)
}
