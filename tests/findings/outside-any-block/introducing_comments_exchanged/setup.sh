network
sed -i -e 's/HMB_input p2/HMB_input px/' -e 's/HMB_input p3/HMB_input p2/' -e 's/HMB_input px/HMB_input p3/' in/net_split_1.h
