#define net_DAG_NAME "net"
#define net_image_size 5
/* $gain */
#define gian_boffset 4
#define gain_bofset 4
#define Gain_Bsize 4
